#include "line_player.hpp"

#include <stdexcept>

#include "trace/exchange_text.hpp"

namespace impresora::prueba {
namespace {

// Ten commands, K and Y in turn, of which the silent ones are marked.
std::string SilentOnes(Bench& bench) {
  std::string marks;
  for (std::uint8_t i = 0; i < 10; ++i) {
    const bool even = i % 2 == 0;
    marks += bench.All(static_cast<std::uint8_t>(40 + i), {even ? "K" : "Y"}).empty() ? 'x' : '.';
  }
  return marks;
}

// Both sides of an arrow, the second as it stands.
std::pair<std::string, std::string> Sides(std::string_view text) {
  const std::size_t arrow = text.find(" => ");
  if (arrow == text.npos) throw std::logic_error("an arrow is missing");
  return {Unescaped(text.substr(0, arrow)), std::string(text.substr(arrow + 4))};
}

// Each piece behind the milliseconds at which it came, where the other side has them too.
std::string Told(const Heard& heard, std::string_view expected) {
  std::string all;
  std::string timed;
  for (const auto& [at, bytes] : heard) {
    all += bytes;
    if (!timed.empty()) timed += ' ';
    timed += "@" + std::to_string(at.count() / 1000);
    if (at.count() % 1000 != 0) timed += "." + std::to_string(at.count() % 1000);
    timed += " " + Frames(bytes);
  }
  return expected.substr(0, 1) == "@" ? timed : Frames(all);
}

}  // namespace

std::string Frames(std::string_view bytes) {
  if (bytes.empty()) return "-";
  std::string text;
  while (!bytes.empty()) {
    const std::size_t end = bytes.front() == kStx ? bytes.find(kEtx) : bytes.npos;
    const std::string_view frame = end == bytes.npos ? "" : bytes.substr(0, end + 5);
    const std::string_view body = end == bytes.npos ? "" : bytes.substr(2, end - 2);
    if (!frame.empty() && frame == Frame(static_cast<std::uint8_t>(frame[1]), body)) {
      text += "[" + std::to_string(static_cast<int>(frame[1])) + " " + Visible(body) + "]";
      bytes.remove_prefix(frame.size());
    } else {
      text += Visible(bytes.substr(0, 1));
      bytes.remove_prefix(1);
    }
  }
  return text;
}

std::string BytesOf(std::string_view line) {
  std::string bytes;
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t plus = std::min(line.find(" + ", at), line.size());
    std::string_view one = line.substr(at, plus - at);
    at = plus + 3;
    const bool damaged = one.substr(0, 8) == "damaged ";
    if (damaged) one.remove_prefix(8);
    if (one == "ack") {
      bytes += kAck;
    } else if (one.front() == '\\') {
      bytes += Unescaped(one);
    } else {
      const std::size_t blank = one.find(' ');
      const int sequence = std::stoi(std::string(one.substr(0, blank)));
      bytes += Frame(static_cast<std::uint8_t>(sequence), BodiesOf(one.substr(blank + 1)).front());
      if (damaged) bytes.back() = static_cast<char>(bytes.back() ^ 1);
    }
  }
  return bytes;
}

void LinePlayer::Diary::Exchanged(const Exchange& exchange) {
  trace += Describe(exchange) + "\n";
}

void LinePlayer::Diary::Printed(const PaperLine& line) {
  paper += AsText(line, 40) + "\n";
}

LinePlayer::LinePlayer() {
  texts_["report"] = [this] { return bench_->session.Faults().Report(); };
  texts_["trace"] = [this] {
    bench_->session.Tell();
    return std::exchange(told_.trace, {});
  };
  texts_["paper"] = [this] {
    bench_->session.Tell();
    return std::exchange(told_.paper, {});
  };
  verbs_["tear"] = [this](std::string_view) { texts_["paper"](); };
  verbs_["rule"] = [this](std::string_view rule) {
    for (const FaultMistake& mistake : bench_->session.Faults().Add(Unescaped(rule))) {
      Expect("a rule", mistake.Words());
    }
  };
  verbs_["rules"] = [this](std::string_view wanted) {
    std::string ids;
    for (const FaultCount& rule : bench_->session.Faults().Rules()) {
      ids += std::to_string(rule.id) + (rule.over ? " (over) " : " ");
    }
    Expect(std::string(wanted) + " ", ids.empty() ? "none " : ids);
  };
  verbs_["remove"] = [this](std::string_view rest) {
    const auto [id, result] = Sides(rest);
    const auto number = static_cast<unsigned>(std::stoi(id));
    Expect(result, bench_->session.Faults().Remove(number) ? "done" : "not there");
  };
  verbs_["clear"] = [this](std::string_view) { bench_->session.Faults().Clear(); };
  verbs_["wrong"] = [this](std::string_view rest) {
    const auto [text, words] = Sides(rest);
    FaultPlan plan;
    std::string told;
    for (const FaultMistake& mistake : plan.Add(text)) told += mistake.Words() + "\n";
    Expect(Unescaped(words) + "\n", plan.Empty() ? told : told + "but rules were added");
  };
  verbs_["reads"] = [this](std::string_view rest) {
    const auto [text, rules] = Sides(rest);
    FaultPlan plan;
    std::string told;
    for (const FaultMistake& mistake : plan.Add(text)) told += mistake.Words() + "\n";
    for (const FaultCount& rule : plan.Rules()) told += rule.text + "\n";
    Expect(Unescaped(rules) + "\n", told);
  };
  verbs_["when"] = [this](std::string_view rest) {
    const auto [when, marks] = Sides(rest);
    Bench bench(when + ": callar");
    Expect(marks, bench.wrong + SilentOnes(bench));
  };
  verbs_["spoil"] = [this](std::string_view rest) {
    const auto [action, heard] = Sides(rest);
    Bench bench("respuesta 1: " + action);
    Expect(heard, bench.wrong + Told(bench.Hear(40, {"K"}), heard));
    Expect("[41 K|0080|0600]", Frames(bench.All(41, {"K"})));
  };
  verbs_["ends"] = [this](std::string_view how) {
    Expect(how, bench_->hung_up ? "unplugged" : bench_->powered_off ? "without power" : "well");
  };
  verbs_["wait"] = [this](std::string_view milliseconds) {
    bench_->now += std::chrono::milliseconds(std::stoi(std::string(milliseconds)));
  };
  verbs_["host"] = [this](std::string_view) { bench_->session.NewHost(); };
  verbs_["power"] = [this](std::string_view) { bench_->session.PowerCycle(); };
}

void LinePlayer::Begin(const Settings& settings) {
  told_ = {};
  bench_ = std::make_unique<Bench>("", settings);
  bench_->session.Attach(told_);
}

void LinePlayer::Command(std::string_view line, std::string_view expected) {
  const Heard heard = bench_->Listen(BytesOf(line));
  if (expected != "*") Expect(expected, Told(heard, expected));
}

}  // namespace impresora::prueba
