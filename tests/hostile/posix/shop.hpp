#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kestra::hostile {

// A folder of its own with a Fiscal.ini, which becomes the current one, and an operator who says yes,
// does not retry, and closes what he is shown.
class Shop {
 public:
  // `device` is what the line is called; `more` are further lines of the settings.
  explicit Shop(const std::string& device, const std::string& more = "");
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;
  ~Shop();

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

void TakeTheOperatorsPlace();
int Shown();  // boxes, to that operator

// What went wrong, so far; each is written down as it comes.
void Fail(const std::string& what);
int Failures();
void Expect(bool held, const std::string& what);

}  // namespace kestra::hostile
