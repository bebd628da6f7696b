#pragma once

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "../booth.hpp"
#include "client.hpp"
#include "line/session.hpp"
#include "panel/json_text.hpp"
#include "panel/panel.hpp"

namespace impresora::prueba {

// The thread that a printer lives on: runs what it is given, one after the other.
class Loop {
 public:
  Loop() : thread_([this] { Run(); }) {}
  ~Loop() {
    Give(nullptr);
    thread_.join();
  }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  void Give(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
    changed_.notify_one();
  }

  // Runs it over there and waits for its end.
  void Do(const std::function<void()>& work) {
    std::mutex mutex;
    std::condition_variable changed;
    bool done = false;
    Give([&] {
      work();
      const std::lock_guard lock(mutex);
      done = true;
      changed.notify_one();
    });
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return done; });
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return !work_.empty(); });
      const std::function<void()> work = std::move(work_.front());
      work_.pop_front();
      if (!work) return;
      lock.unlock();
      work();
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> work_;
  std::thread thread_;
};

// A printer on a loop of its own with a panel, and a browser's view of it.
class Desk : public testing::Test {
 protected:
  Desk() {
    loop.Do([this] {
      session = std::make_unique<Session>(Settings{}, clock);
      panel = std::make_unique<Panel>(
          PanelSettings{}, PanelHost{.session = *session,
                                     .post = [this](auto work) { loop.Give(std::move(work)); },
                                     .power_cycle = [this] { session->PowerCycle(); }});
    });
    const std::string url = panel->Url();
    port = std::stoi(url.substr(url.rfind(':') + 1));
    own = "127.0.0.1:" + std::to_string(port);
  }

  ~Desk() override {
    loop.Do([this] {
      panel.reset();
      session.reset();
    });
  }

  // One command of a host; the printer's answer.
  std::string Send(std::initializer_list<std::string_view> parts) { return SendBody(Body(parts)); }
  std::string SendBody(const std::string& body) {
    std::string answer;
    loop.Do([&] {
      session->Receive(Frame(sequence, body), now);
      answer = session->Advance(now).bytes;
      session->Tell();
    });
    sequence = sequence == 70 ? std::uint8_t{32} : static_cast<std::uint8_t>(sequence + 1);
    now += std::chrono::milliseconds(10);
    return answer;
  }

  // Coffee for 21.00 on a ticket.
  void PrintTicket() {
    Send({"@", "C"});
    Send({"B", "Cafe", "00002000", "000001050", "2100", "M", "0001", "0000", "000000000"});
    Send({"D", "Efectivo", "000002100", "T"});
    Send({"E", "T"});
  }

  std::optional<PanelAnswer> Get(const std::string& path, const HeadFields& fields = {}) const {
    return AskPanel(port, "GET", path, fields);
  }
  std::optional<PanelAnswer> Post(const std::string& path, const std::string& body,
                                  const HeadFields& fields = {}) const {
    return AskPanel(port, "POST", path, fields, body);
  }
  std::optional<PanelAnswer> Delete(const std::string& path, const HeadFields& fields = {}) const {
    return AskPanel(port, "DELETE", path, fields);
  }
  Json State() { return Json::parse(Get("/api/estado")->body); }

  Loop loop;
  StoppedClock clock;
  std::unique_ptr<Session> session;
  std::unique_ptr<Panel> panel;
  int port = 0;
  std::string own;
  std::uint8_t sequence = 32;
  Micros now = std::chrono::milliseconds(1);
};

}  // namespace impresora::prueba
