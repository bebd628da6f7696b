#include "unit/world.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "frame/instance.hpp"
#include "golden/base_configuration.hpp"
#include "golden/frame_check.hpp"
#include "kestra/kestra.h"

namespace kestra::unit {

void FillProfile(FakePlatform& world) {
  for (const auto& [key, value] : golden::kBaseConfiguration) world.GetProfile().Set(key, value);
  world.GetProfile().Set("TipoComprobante", "TQ");
}

Reply Answering(std::string printer, std::string fiscal, std::vector<std::string> fields) {
  fields.insert(fields.begin(), {std::move(printer), std::move(fiscal)});
  return [fields = std::move(fields)](std::string_view frame) -> std::vector<Burst> {
    std::string answer(frame.substr(0, 3));
    for (const auto& field : fields) answer.append(1, '\x1C').append(field);
    answer += '\x03';
    answer += golden::Checksum(answer);
    return {{.delay = 0, .bytes = answer, .unplug = false}};
  };
}

std::vector<std::string> TextsOf(const Journal& journal, Happening kind) {
  std::vector<std::string> texts;
  for (const auto& event : journal.Events()) {
    if (event.kind == kind) texts.push_back(event.text);
  }
  return texts;
}

std::string Wire(const Journal& journal) {
  std::string wire;
  for (const auto& bytes : TextsOf(journal, Happening::kWrite)) wire += bytes;
  return wire;
}

FakePlatform& ExportsOnFakes() {
  auto world = std::make_unique<FakePlatform>();
  auto& kept = *world;
  FillProfile(kept);
  kept.Line().SetDefault(Answering("0000", "0600"));
  ReplaceInstance(std::move(world));
  return kept;
}

FakePlatform& StartedShop(std::string_view key, std::string_view value) {
  auto& world = ExportsOnFakes();
  world.GetProfile().Set(key, value);
  EXPECT_EQ(EP_Init(), 1);
  return world;
}

}  // namespace kestra::unit
