// Runs the inputs that it is given, files or folders of them: what was found once stays right in
// every build, with or without the means to look for more.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::size_t Replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  (void)std::fprintf(stderr, "%s\n", file.filename().c_str());  // the last one is to blame
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::is_directory(argv[i])) {
      count += Replay(argv[i]);
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      count += Replay(entry.path());
    }
  }
  (void)std::printf("%zu inputs\n", count);
  return count == 0 ? 1 : 0;
}
