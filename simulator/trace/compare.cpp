#include "trace/compare.hpp"

#include <algorithm>
#include <ostream>

#include "trace/difference.hpp"

namespace impresora {
namespace {

constexpr Sides kSides{"A", "B"};

std::string PlaceOf(const RecordedExchange& exchange) {
  const std::vector<Event> events = Frames(exchange.host);
  const Packet* const packet = CommandOf(events);
  return packet != nullptr ? ExchangeName(exchange.number, *packet)
                           : std::to_string(exchange.number) + " (trama dañada)";
}

std::vector<std::string> Differences(const RecordedExchange& a, const RecordedExchange& b,
                                     bool clock) {
  const std::vector<Event> events = Frames(a.host);
  const std::vector<Event> others = Frames(b.host);
  const Packet* const first = CommandOf(events);
  const Packet* const second = CommandOf(others);
  if (first == nullptr && second == nullptr) return {};
  if (first == nullptr || second == nullptr) {
    return {std::string("comando: solo en ") + (first != nullptr ? "A" : "B") + " llegó sano"};
  }
  auto differences = CommandDifferences(*first, *second, kSides, clock);
  if (differences.empty()) {
    differences = AnswerDifferences(*first, a.printer, b.printer, kSides, clock);
  }
  return differences;
}

}  // namespace

std::optional<std::string> Compare(const Recording& a, const Recording& b,
                                   CompareSettings settings) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const auto differences = Differences(a[i], b[i], settings.clock);
    if (!differences.empty()) {
      return "intercambio " + PlaceOf(a[i]) + ": " + differences.front();
    }
  }
  if (a.size() == b.size()) return std::nullopt;
  const bool a_longer = a.size() > b.size();
  return std::string(a_longer ? "B" : "A") + " termina antes: falta el intercambio " +
         PlaceOf(a_longer ? a[common] : b[common]);
}

int CompareFiles(const std::filesystem::path& a, const std::filesystem::path& b,
                 CompareSettings settings, std::ostream& out, std::ostream& errors) {
  try {
    const Recording first = ReadRecordingFile(a);
    const auto difference = Compare(first, ReadRecordingFile(b), settings);
    if (difference) {
      out << *difference << '\n';
      return kDifferent;
    }
    out << "Iguales: " << first.size()
        << (first.size() == 1 ? " intercambio\n" : " intercambios\n");
    return kSame;
  } catch (const RecordingFailure& failure) {
    errors << failure.what() << '\n';
    return kUnreadable;
  }
}

}  // namespace impresora
