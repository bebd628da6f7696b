#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console.hpp"
#include "troubles.hpp"

namespace kestra::tool {

// What was looked at and what was found. Tells people as it goes, and programs at the end.
class Diagnosis {
 public:
  explicit Diagnosis(Console& console) : console_(console) {}

  void Section(std::string title);
  void Fact(std::string name, std::string value);

  // `detail` says where and how much, behind the words of the trouble's row.
  void Find(Trouble trouble, std::string detail = {});

  [[nodiscard]] bool Found(Trouble trouble) const;

  // The gravest of what was found.
  [[nodiscard]] const TroubleRow* Verdict() const;

  // Tells what was found, and the verdict.
  Exit Conclude();

 private:
  struct Part {
    std::string title;
    std::vector<std::pair<std::string, std::string>> facts;
  };
  struct Finding {
    const TroubleRow* row;
    std::string detail;
  };

  void TellPeople() const;
  void TellPrograms(Exit exit) const;

  Console& console_;
  std::vector<Part> parts_;
  std::vector<Finding> findings_;
};

}  // namespace kestra::tool
