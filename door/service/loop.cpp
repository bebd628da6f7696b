#include "service/loop.hpp"

#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <csignal>
#include <exception>
#include <utility>

#include "service/loop_inside.hpp"

namespace puerta {

Loop::Loop() : inside_(std::make_unique<Inside>()) {}

Loop::~Loop() = default;

void Loop::After(std::chrono::milliseconds pause, std::function<void()> then) {
  if (pause.count() <= 0) return boost::asio::post(inside_->context, std::move(then));
  const auto timer = std::make_shared<boost::asio::steady_timer>(inside_->context, pause);
  timer->async_wait([timer, then = std::move(then)](boost::system::error_code error) {
    if (!error) then();
  });
}

void Loop::Run(const std::function<void(const char*)>& failed) {
  const auto work = boost::asio::make_work_guard(inside_->context);
  while (!inside_->context.stopped()) {
    try {
      inside_->context.run();
    } catch (const std::exception& error) {
      failed(error.what());
    }
  }
}

void Loop::Stop() {
  inside_->context.stop();
}

void Loop::Linger(std::chrono::milliseconds time) {
  inside_->context.restart();
  inside_->context.run_for(time);
}

void Loop::StopOnSignals() {
  inside_->signals.add(SIGINT);
  inside_->signals.add(SIGTERM);
  inside_->signals.async_wait([this](boost::system::error_code error, int) {
    if (!error) Stop();
  });
}

}  // namespace puerta
