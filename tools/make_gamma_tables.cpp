// Writes the tables of spaces/gamma_tables.h as C++.
#include <cmath>
#include <cstdio>

namespace {

// Through single precision, where a value near a half becomes one and goes to the even neighbour.
long rounded(double v) { return std::lrint(static_cast<float>(v)); }

long forward(int i, int most) {
  const double t = double(i) / most;
  return t < 0.018 ? std::lrint(4.5 * i) : rounded(most * (1.099 * std::pow(t, 0.45) - 0.099));
}
long inverse(int i, int most) {
  const double t = double(i) / most;
  return t < 0.0812 ? std::lrint(i / 4.5) : rounded(most * std::pow((t + 0.099) / 1.099, 1 / 0.45));
}

void write(const char* sample, const char* name, int most, long (*entry)(int, int)) {
  std::printf("const %s GammaTables<%s>::%s[%d] = {", sample, sample, name, most + 1);
  for (int i = 0; i <= most; ++i) std::printf("%s%ld,", i % 16 ? " " : "\n    ", entry(i, most));
  std::printf("\n};\n");
}

}  // namespace

int main() {
  std::printf("#include \"spaces/gamma_tables.h\"\n\nnamespace tolk {\n");
  write("uint8_t", "forward", 255, forward);
  write("uint8_t", "inverse", 255, inverse);
  write("uint16_t", "forward", 65535, forward);
  write("uint16_t", "inverse", 65535, inverse);
  std::printf("}  // namespace tolk\n");
}
