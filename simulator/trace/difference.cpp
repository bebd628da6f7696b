#include "trace/difference.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "text/text.hpp"
#include "trace/exchange_text.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

constexpr std::uint8_t kSetClock = 'X';

bool TellsTime(std::string_view name) {
  return name == "fecha" || name == "hora";
}

std::string Said(std::string_view what, std::string_view first, std::string_view second,
                 Sides sides) {
  const auto shown = [](std::string_view value) {
    return value.empty() ? std::string("vacío") : "'" + std::string(value) + "'";
  };
  return std::string(what) + ": " + std::string(sides.first) + " " + shown(first) + ", " +
         std::string(sides.second) + " " + shown(second);
}

void AddValues(std::vector<std::string>& differences, const std::vector<NamedValue>& first,
               const std::vector<NamedValue>& second, std::string_view what, Sides sides,
               bool clock) {
  const std::size_t common = std::min(first.size(), second.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (first[i].value == second[i].value) continue;
    if (!clock && TellsTime(first[i].name)) continue;
    differences.push_back(Said(first[i].name, first[i].value, second[i].value, sides));
  }
  if (first.size() != second.size()) {
    differences.push_back(Said("cantidad de " + std::string(what), std::to_string(first.size()),
                               std::to_string(second.size()), sides));
  }
}

// The last frame of a sequence of answers is the one that counts.
const Event* LastFrame(const std::vector<Event>& events) {
  const auto is_frame = [](const Event& event) { return event.kind != EventKind::kAck; };
  const auto last = std::find_if(events.rbegin(), events.rend(), is_frame);
  return last == events.rend() ? nullptr : &*last;
}

std::string Manner(const Event* frame, std::string_view bytes) {
  if (frame == nullptr) {
    return bytes.find(kNak) != std::string_view::npos ? "trama rechazada (NAK)" : "silencio";
  }
  return frame->kind == EventKind::kDamagedFrame ? "respuesta dañada" : "respuesta";
}

// An answer reads as a packet whose first two fields are the status words.
Answer DataOf(const Packet& answer) {
  Answer data;
  if (answer.fields.size() > 2) data.fields.assign(answer.fields.begin() + 2, answer.fields.end());
  return data;
}

std::string WordOf(const Packet& answer, std::size_t index) {
  return index < answer.fields.size() ? Utf8FromHost(answer.fields[index]) : std::string();
}

}  // namespace

std::vector<Event> Frames(std::string_view bytes) {
  std::vector<Event> events;
  PacketDecoder decoder;
  for (const char byte : bytes) {
    if (auto event = decoder.Push(byte)) events.push_back(std::move(*event));
  }
  return events;
}

const Packet* CommandOf(const std::vector<Event>& events) {
  const Event* const frame = LastFrame(events);
  return frame != nullptr && frame->kind == EventKind::kPacket ? &frame->packet : nullptr;
}

std::string ExchangeName(unsigned number, const Packet& packet) {
  return std::to_string(number) + " (" + CommandMark(packet.command) + " " +
         CommandName(packet.command) + ")";
}

std::vector<std::string> CommandDifferences(const Packet& first, const Packet& second, Sides sides,
                                            bool clock) {
  std::vector<std::string> differences;
  if (first.command != second.command) {
    differences.push_back(
        Said("comando", CommandMark(first.command) + " " + CommandName(first.command),
             CommandMark(second.command) + " " + CommandName(second.command), sides));
    return differences;
  }
  const bool with_time = clock || first.command != kSetClock;
  AddValues(differences, NamedFields(first), NamedFields(second), "campos", sides, with_time);
  return differences;
}

std::vector<std::string> AnswerDifferences(const Packet& command, std::string_view first,
                                           std::string_view second, Sides sides, bool clock) {
  std::vector<std::string> differences;
  const std::vector<Event> events = Frames(first);
  const std::vector<Event> others = Frames(second);
  const Event* const a = LastFrame(events);
  const Event* const b = LastFrame(others);
  if (Manner(a, first) != Manner(b, second)) {
    differences.push_back(Said("respuesta", Manner(a, first), Manner(b, second), sides));
  }
  if (a == nullptr || b == nullptr || !differences.empty()) return differences;
  constexpr std::array<std::string_view, 2> kWords{"palabra de la impresora", "palabra fiscal"};
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    const std::string one = WordOf(a->packet, i);
    const std::string other = WordOf(b->packet, i);
    if (one != other) differences.push_back(Said(kWords.at(i), one, other, sides));
  }
  AddValues(differences, NamedAnswer(command, DataOf(a->packet)),
            NamedAnswer(command, DataOf(b->packet)), "datos de la respuesta", sides, clock);
  return differences;
}

}  // namespace impresora
