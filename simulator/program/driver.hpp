#pragma once

#include <asio.hpp>
#include <functional>
#include <string_view>

#include "program/endpoint.hpp"
#include "program/line_speed.hpp"
#include "program/seat.hpp"

namespace impresora {

// Keeps a seat and a cable going on the loop: bytes at their arrival, the rest at its time.
class Driver {
 public:
  // `after` runs after each turn, when what there was to answer has been answered.
  Driver(asio::io_context& loop, Seat& seat, Endpoint& endpoint, LineSpeed& speed,
         std::function<void()> after);

  void Start();

  // A turn now: something changed that the seat's own times do not know of.
  void Turn();

 private:
  void Arrived(std::string_view bytes);
  void Await();

  Seat& seat_;
  Endpoint& endpoint_;
  LineSpeed& speed_;
  asio::io_context& loop_;
  asio::steady_timer due_;
  std::function<void()> after_;
};

}  // namespace impresora
