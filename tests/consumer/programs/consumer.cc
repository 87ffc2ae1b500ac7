// What a user's C++ program does with the installed library: a vector function, the mode word, a parallel loop.
#include <orvik/orvik.h>

#include <cstdio>
#include <vector>

int main() {
  const std::vector<float> a{1.5f, -2.0f, 3.25f}, b{0.5f, 2.0f, -0.25f};
  std::vector<float> r(3);
  _zymsAdd(3, a.data(), b.data(), r.data());
  const bool sums = r == std::vector<float>{2.0f, 0.0f, 3.0f};

  const uint32_t mode = _zymSetMode(0x3);
  const bool modes = mode == 0x1A02 && _zymGetMode() == 0x1A03;

  using Body = void (*)(int32_t, void*, void*, void*);
  using For = void (*)(int32_t, int32_t, void*, Body);
  const auto loop = reinterpret_cast<For>(orvik_serv_load_thread_fun("orvik_qor_serv_threader_for"));
  std::vector<int> runs(100);
  loop(100, 0, runs.data(), [](int32_t i, void*, void*, void* context) { ++static_cast<int*>(context)[i]; });
  const bool loops = runs == std::vector<int>(100, 1);

  std::printf("C++ program: sums %d, modes %d, loops %d\n", sums, modes, loops);
  return sums && modes && loops ? 0 : 1;
}
