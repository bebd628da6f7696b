#include "prompt/own_printer.hpp"

#include <asio.hpp>
#include <future>
#include <thread>
#include <utility>

#include "program/driver.hpp"
#include "program/line_speed.hpp"
#include "program/seat.hpp"
#include "program/system_clock.hpp"
#include "program/tcp_server.hpp"

namespace kestra::tool {
class OwnPrinter::Works {
 public:
  explicit Works(const impresora::Settings& settings)
      : session_(settings, clock_),
        seat_(session_),
        server_(loop_, {}),
        speed_(server_, 0, [](const std::string&) {}),
        driver_(loop_, seat_, server_, speed_, [] {}),
        roll_(settings.PaperColumns()) {
    session_.GetPrinter().SetTime(clock_.LocalSeconds());
    session_.Attach(roll_);
    driver_.Start();
    thread_ = std::thread([this] { loop_.run(); });
  }
  Works(const Works&) = delete;
  Works& operator=(const Works&) = delete;
  ~Works() {
    loop_.stop();
    thread_.join();
  }

  [[nodiscard]] std::string Port() const { return server_.Port(); }

  std::vector<std::string> TakePaper() {
    std::promise<std::vector<std::string>> paper;
    asio::post(loop_, [&] {
      session_.Tell();
      paper.set_value(roll_.Take());
    });
    return paper.get_future().get();
  }

 private:
  class Roll : public impresora::Observer {
   public:
    explicit Roll(std::size_t columns) : columns_(columns) {}

    void Printed(const impresora::PaperLine& line) override {
      lines_.push_back(impresora::AsText(line, columns_));
    }
    std::vector<std::string> Take() { return std::exchange(lines_, {}); }

   private:
    std::size_t columns_;
    std::vector<std::string> lines_;
  };

  asio::io_context loop_;
  impresora::SystemClock clock_;
  impresora::Session session_;
  impresora::SeatOf<impresora::Session> seat_;
  impresora::TcpServer server_;
  impresora::LineSpeed speed_;
  impresora::Driver driver_;
  Roll roll_;
  std::thread thread_;
};

OwnPrinter::OwnPrinter(const impresora::Settings& settings)
    : works_(std::make_unique<Works>(settings)) {}

OwnPrinter::~OwnPrinter() = default;

std::string OwnPrinter::Port() const {
  return works_->Port();
}

std::vector<std::string> OwnPrinter::TakePaper() {
  return works_->TakePaper();
}

}  // namespace kestra::tool
