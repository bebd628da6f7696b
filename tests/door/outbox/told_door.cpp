// A door without printers: what its standard input says happened, and the outbox tells it.
//
//   told_door STORE HOST PORT SHOP
//
// A line is a printer, a blank and a JSON object. It answers with the event's number when it is on the disk.
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

#include "outbox/outbox.hpp"

int main(int count, char** words) {
  if (count != 5) return EXIT_FAILURE;
  const std::string path = words[1];
  const auto store = puerta::OpenStore({.path = path, .publishes = true});
  puerta::OutboxSettings settings;
  settings.host = words[2];
  settings.port = std::atoi(words[3]);
  settings.shop = words[4];
  settings.waits_for_receipt = true;
  const auto outbox = puerta::StartOutbox(
      settings, path, [](const std::string& line) { std::cerr << line << '\n'; });
  for (std::string line; std::getline(std::cin, line);) {
    const std::size_t blank = line.find(' ');
    const auto now =
        std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
    std::cout << store->Add({.printer = line.substr(0, blank),
                             .kind = "documento",
                             .data = line.substr(blank + 1),
                             .publish = true},
                            now)
              << std::endl;
    outbox->Nudge();
  }
  return EXIT_SUCCESS;
}
