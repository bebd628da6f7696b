#pragma once

#include <string>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"

namespace kestra::unit {

// Writes the shop's settings into the world's Fiscal.ini.
void FillProfile(FakePlatform& world);

// A printer that answers every frame at once: these two words and these data fields.
Reply Answering(std::string printer, std::string fiscal, std::vector<std::string> fields = {});

// What the fakes saw of one kind, in order.
std::vector<std::string> TextsOf(const Journal& journal, Happening kind);

// The bytes written to the line, frames and acknowledgements.
std::string Wire(const Journal& journal);

// Puts a fresh world behind the exported functions: a shop with a printer that accepts everything.
// The world belongs to the library until the next one takes its place.
FakePlatform& ExportsOnFakes();

// The same with such a setting, started.
FakePlatform& StartedShop(std::string_view key = "TipoComprobante", std::string_view value = "TQ");

}  // namespace kestra::unit
