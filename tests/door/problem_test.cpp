#include "base/problem.hpp"

#include <gtest/gtest.h>

namespace puerta {
namespace {

TEST(Problem, SaysWhatKindItIsAndLeavesOutWhatThereIsNot) {
  EXPECT_EQ(LineOf(ToJson(Problem{.status = 400, .kind = "sin-clave", .title = "Falta la clave"})),
            R"({"status":400,"title":"Falta la clave","type":"/problemas/sin-clave"})");
}

TEST(Problem, HasEveryErrorAtItsPointer) {
  const Problem problem{.status = 422,
                        .kind = "no-valido",
                        .title = "No válido",
                        .detail = "2 errores",
                        .cause = 105,
                        .errors = {{"/total", "sobra"}, {"/pagos/0", "falta"}},
                        .more = {{"trabajo", 7}}};
  const auto told = ToJson(problem);
  EXPECT_EQ(LineOf(told["errores"]),
            R"([{"mensaje":"sobra","puntero":"/total"},{"mensaje":"falta","puntero":"/pagos/0"}])");
  EXPECT_EQ(told["causa"], 105);
  EXPECT_EQ(told["trabajo"], 7);
}

TEST(Json, ALineHoldsWhatIsNoUtf8) {
  EXPECT_EQ(LineOf(Json{{"a", "\xff"}}), "{\"a\":\"\xef\xbf\xbd\"}");
}

}  // namespace
}  // namespace puerta
