// A stream is a generator for the standard library: a shuffled deck, the same on every run.
#include <algorithm>
#include <cstdio>
#include <numeric>
#include <orvik/front.hpp>

int main() {
  orvik::Stream stream(orvik::Generator::MT19937, 52);
  std::vector<int> deck(52);
  std::iota(deck.begin(), deck.end(), 0);
  std::shuffle(deck.begin(), deck.end(), stream);
  for (int card : deck) std::printf("%c%c ", "23456789TJQKA"[card % 13], "cdhs"[card / 13]);
  std::printf("\n");
  std::sort(deck.begin(), deck.end());
  return deck.front() == 0 && deck.back() == 51 ? 0 : 1;
}
