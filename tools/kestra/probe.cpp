#include "probe.hpp"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>
#include <utility>

#include "protocol/packet.hpp"

namespace kestra::tool {
namespace {

using Time = std::chrono::steady_clock;
constexpr char kNak = '\x15';

double SecondsSince(Time::time_point then) {
  return std::chrono::duration<double>(Time::now() - then).count();
}

// Closes the port however the exchange ends.
class OpenPort {
 public:
  explicit OpenPort(SerialPort& port) : port_(port) { port_.PortOpen(true); }
  OpenPort(const OpenPort&) = delete;
  OpenPort& operator=(const OpenPort&) = delete;
  ~OpenPort() { port_.PortOpen(false); }

 private:
  SerialPort& port_;
};

// Takes the bytes out of the text, and says how many they were.
int TakeAll(std::string& text, char byte) {
  return static_cast<int>(std::erase(text, byte));
}

std::vector<std::string> FieldsOf(std::string_view answer) {
  constexpr std::size_t kHeader = 3;  // start, sequence, command
  std::vector<std::string> fields;
  auto rest = answer.substr(std::min(kHeader, answer.size()));
  rest = rest.substr(0, rest.find(kEtx));
  while (!rest.empty() && rest.front() == kFs) {
    rest.remove_prefix(1);
    const auto end = std::min(rest.find(kFs), rest.size());
    fields.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  return fields;
}

bool SumIsRight(std::string_view answer) {
  const auto body = answer.size() - kChecksumDigits;
  return ChecksumOf(answer.substr(0, body)) == answer.substr(body);
}

// Judges the whole answers among what has come; true when the frame's own is there.
bool TakeAnswers(std::string& received, std::string_view frame, Reply& reply) {
  while (const auto length = AnswerLength(received)) {
    const auto answer = TrimAnswer(received);
    received.erase(0, length);
    if (answer == frame) {
      reply.echo = true;
    } else if (AnswerHeader(answer) != frame.substr(1, 2)) {
      ++reply.foreign;
    } else if (!SumIsRight(answer)) {
      ++reply.damaged;
    } else {
      reply.fields = FieldsOf(answer);
      reply.answered = reply.fields.size() >= 2;
      return true;
    }
  }
  return false;
}

}  // namespace

Probe::Probe(std::unique_ptr<SerialPort> port)
    : port_(std::move(port)),
      sequence_(NextSequence({}, static_cast<int>(std::time(nullptr) % 60)).current) {}

Reply Probe::Ask(std::string_view command, Wait wait) {
  const OpenPort open(*port_);
  return Exchange(NextFrame(command), wait);
}

Reply Probe::AskTwice(std::string_view command, std::int32_t milliseconds, Reply& first) {
  const OpenPort open(*port_);
  const auto frame = NextFrame(command);
  first = Exchange(frame, {}, false);
  if (!first.answered) return {};
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  return Exchange(frame, {});
}

std::string Probe::NextFrame(std::string_view command) {
  sequence_ =
      sequence_ == kLastSequence ? kFirstSequence : static_cast<std::int16_t>(sequence_ + 1);
  const auto packet = BuildPacket(sequence_, command);
  return packet + ChecksumOf(packet);
}

Reply Probe::Exchange(std::string_view frame, Wait wait, bool acknowledge) {
  Reply reply;
  std::string received;
  port_->DiscardInput();
  const auto begun = Time::now();
  port_->Output(frame);
  auto waiting_since = begun;
  while (SecondsSince(waiting_since) < wait.silence && SecondsSince(begun) < wait.all) {
    if (port_->InBufferCount() == 0) continue;
    const auto come = port_->Input();
    reply.bytes += come.size();
    received += come;
    reply.refusals += TakeAll(received, kNak);
    if (const int busy = TakeAll(received, kDc2); busy > 0) {
      reply.busy += busy;
      waiting_since = Time::now();
    }
    if (TakeAnswers(received, frame, reply)) {
      if (acknowledge) port_->Output({&kAck, 1});
      break;
    }
  }
  reply.seconds = SecondsSince(begun);
  return reply;
}

}  // namespace kestra::tool
