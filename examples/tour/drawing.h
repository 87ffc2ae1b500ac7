// Plots as SVG files: framed panels with a grid, lines, bars, dots and texts.
#ifndef ORVIK_EXAMPLES_TOUR_DRAWING_H
#define ORVIK_EXAMPLES_TOUR_DRAWING_H

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace tour {

// A round step that divides `span` into about four.
inline double grid_step(double span) {
  const double raw = span / 4, power = std::pow(10, std::floor(std::log10(raw)));
  for (double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= raw * 0.8) return factor * power;
  }
  return 10 * power;
}

// One framed plot of the drawing: data coordinates to the page.
struct Panel {
  double left, top, width, height, x0, x1, y0, y1;
  double x(double t) const { return left + (t - x0) / (x1 - x0) * width; }
  double y(double v) const { return top + (y1 - v) / (y1 - y0) * height; }
};

class Drawing {
 public:
  explicit Drawing(std::FILE* file) : file_(file) {}

  void begin(double width, double height) {
    std::fprintf(file_,
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %g %g\" width=\"%g\" height=\"%g\" "
                 "font-family=\"Inter, 'DejaVu Sans', Helvetica, Arial, sans-serif\">\n"
                 "<rect width=\"100%%\" height=\"100%%\" fill=\"#fdfcf9\"/>\n",
                 width, height, width, height);
  }
  void end() { std::fputs("</svg>\n", file_); }

  void text(double x, double y, double size, const char* fill, const char* anchor, const std::string& what,
            const char* weight = "400") {
    std::fprintf(
        file_,
        "<text x=\"%.1f\" y=\"%.1f\" font-size=\"%g\" fill=\"%s\" text-anchor=\"%s\" font-weight=\"%s\">%s</text>\n", x,
        y, size, fill, anchor, weight, escaped(what).c_str());
  }
  // A short line of the colour, a name, a note.
  void legend(double x, double y, const char* colour, const char* name, const char* note) {
    line(x, y, x + 26, y, colour, 3.2);
    std::fprintf(file_,
                 "<text x=\"%.1f\" y=\"%.1f\" font-size=\"14\" fill=\"%s\"><tspan font-weight=\"600\">%s</tspan>"
                 "<tspan dx=\"8\" font-size=\"13\" fill=\"#78716c\">%s</tspan></text>\n",
                 x + 34, y + 5, colour, name, note);
  }
  void line(double xa, double ya, double xb, double yb, const char* stroke, double width) {
    std::fprintf(file_, "<line x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\" stroke=\"%s\" stroke-width=\"%g\"/>\n",
                 xa, ya, xb, yb, stroke, width);
  }
  void band(const Panel& p, double from, double to) {
    std::fprintf(file_, "<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" fill=\"#efe9dc\"/>\n", p.x(from),
                 p.top, p.x(to) - p.x(from), p.height);
  }
  // From the bottom of the panel up to `value`.
  void bar(const Panel& p, double from, double to, double value, const char* fill) {
    std::fprintf(file_, "<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" fill=\"%s\"/>\n", p.x(from),
                 p.y(value), p.x(to) - p.x(from), p.y(p.y0) - p.y(value), fill);
  }
  void dot(double x, double y) {
    std::fprintf(file_,
                 "<circle cx=\"%.1f\" cy=\"%.1f\" r=\"4\" fill=\"#1c1917\" stroke=\"#fdfcf9\" stroke-width=\"1.5\"/>\n",
                 x, y);
  }
  // A line through points; a curve has its values at even places from end to end of the panel.
  void curve(const Panel& p, const std::vector<double>& t, const std::vector<double>& v, const char* colour) {
    std::fprintf(file_,
                 "<polyline fill=\"none\" stroke=\"%s\" stroke-width=\"2.2\" stroke-linejoin=\"round\" points=\"",
                 colour);
    for (size_t i = 0; i < v.size(); ++i) std::fprintf(file_, "%.1f,%.1f ", p.x(t[i]), p.y(v[i]));
    std::fputs("\"/>\n", file_);
  }
  void curve(const Panel& p, const std::vector<double>& v, const char* colour) {
    std::vector<double> t(v.size());
    for (size_t i = 0; i < v.size(); ++i)
      t[i] = p.x0 + (p.x1 - p.x0) * static_cast<double>(i) / static_cast<double>(v.size() - 1);
    curve(p, t, v, colour);
  }
  void grid(const Panel& p, double step) {
    for (double v = std::ceil(p.y0 / step) * step; v <= p.y1; v += step) {
      const bool zero = std::abs(v) < step / 2;
      line(p.left, p.y(v), p.left + p.width, p.y(v), zero ? "#a8a29e" : "#e2ddd2", zero ? 1.2 : 1);
      char label[32];
      std::snprintf(label, sizeof label, "%g", zero ? 0.0 : v);
      text(p.left - 10, p.y(v) + 4, 12, "#78716c", "end", label);
    }
  }

 private:
  static std::string escaped(const std::string& what) {
    std::string out;
    for (char c : what) {
      if (c == '<' || c == '>' || c == '&') {
        out += c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&amp;";
      } else {
        out += c;
      }
    }
    return out;
  }
  std::FILE* file_;
};

}  // namespace tour

#endif
