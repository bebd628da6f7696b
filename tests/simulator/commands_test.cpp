#include "commands/commands.hpp"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace impresora {
namespace {

TEST(Commands, EachByteIsThatOfOne) {
  std::set<std::uint8_t> bytes;
  for (const CommandRow& row : Commands()) {
    EXPECT_TRUE(bytes.insert(row.byte).second) << row.name;
    EXPECT_EQ(FindCommand(row.byte), &row) << row.name;
  }
  EXPECT_EQ(bytes.size(), 28U);
  EXPECT_EQ(FindCommand('?'), nullptr);
}

TEST(Commands, ARowSpeaksOfFieldsThatItHas) {
  for (const CommandRow& row : Commands()) {
    EXPECT_LE(row.required, row.fields.size()) << row.name;
    std::set<std::string_view> names;
    for (const FieldRow& field : row.fields) {
      EXPECT_TRUE(names.insert(field.name).second) << row.name << ": " << field.name;
    }
    for (const AnswerRow& answer : row.answers) {
      EXPECT_TRUE(answer.field.empty() || names.contains(answer.field)) << row.name;
    }
  }
}

TEST(Commands, ABodyThatAsksForAFieldOfAnotherCommandIsAMistake) {
  const Fields fields(FindCommand('I')->fields);
  EXPECT_EQ(fields.Text("texto"), "");
  EXPECT_THROW(fields.Text("importe"), std::logic_error);
}

}  // namespace
}  // namespace impresora
