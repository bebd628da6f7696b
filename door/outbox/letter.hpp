#pragma once

#include <string>

#include "outbox/settings.hpp"
#include "store/store.hpp"

namespace puerta {

// What is told to the broker, as it stands in the door's file.
struct Letter {
  std::int64_t id = 0;
  std::string printer{};
  std::string kind{};
  Moment moment{};
  std::string data{};
  std::int64_t sequence = 0;
  std::string key{};
};

// PREFIX/v1/SHOP/PRINTER/KIND; "-" is the printer of what the door itself has to say.
std::string TopicOf(const OutboxSettings& settings, const Letter& letter);

// Under which the far end says what it has.
std::string ReceiptsOf(const OutboxSettings& settings);

// README.md has the shape, esquema.json what a program can check.
std::string PayloadOf(const OutboxSettings& settings, const Letter& letter);

// 2026-11-22T22:05:00.123Z
std::string Timestamp(Moment moment);

}  // namespace puerta
