#include "golden/replies.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "golden/frame_check.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"

namespace kestra::golden {
namespace {

// Bytes that are to be read apart come this far apart.
constexpr std::int64_t kGap = 10'000;

// What the steps before have left behind for the next one.
struct Player {
  std::string_view frame;
  std::vector<Burst> bursts{};
  std::int64_t delay = 0;
  std::size_t piece = 0;  // 0: in one piece
  std::int32_t times = 1;
};

void Send(Player& player, std::string_view bytes) {
  const std::size_t piece = player.piece == 0 ? bytes.size() : player.piece;
  for (std::int32_t round = 0; round < player.times; ++round) {
    for (std::size_t at = 0; at < bytes.size(); at += piece) {
      player.bursts.push_back({player.delay, std::string(bytes.substr(at, piece))});
      if (at + piece < bytes.size()) player.delay += kGap;
    }
    if (round + 1 < player.times) player.delay += kGap;
  }
  player.piece = 0;
  player.times = 1;
}

std::string Answer(char sequence, char command, std::string_view fields) {
  std::string answer{'\x02', sequence, command};
  for (const std::string_view field : Split(fields, "|")) {
    answer += '\x1c';
    answer += FromVisible(field);
  }
  answer += '\x03';
  return answer + Checksum(answer);
}

void Ok(Player& player, std::string_view fields) {
  Send(player, Answer(player.frame[1], player.frame[2], fields));
}

void OtherSequence(Player& player, std::string_view rest) {
  const auto shift = static_cast<char>(ToInteger(TakeWord(rest)));
  const auto sequence = static_cast<char>(player.frame[1] + shift);
  Send(player, Answer(sequence, player.frame[2], rest));
}

void OtherCommand(Player& player, std::string_view rest) {
  const std::string command = FromVisible(TakeWord(rest));
  Send(player, Answer(player.frame[1], command.at(0), rest));
}

void Raw(Player& player, std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const auto brace = text.find('{');
    bytes += FromVisible(text.substr(0, brace));
    if (brace == std::string_view::npos) break;
    const std::string_view name = text.substr(brace, 5);
    if (name == "{seq}") {
      bytes += player.frame[1];
    } else if (name == "{cmd}") {
      bytes += player.frame[2];
    } else if (name == "{sum}") {
      const auto start = bytes.rfind('\x02');
      bytes += Checksum(std::string_view(bytes).substr(start == std::string::npos ? 0 : start));
    } else {
      bytes += '{';
      text.remove_prefix(brace + 1);
      continue;
    }
    text.remove_prefix(brace + name.size());
  }
  Send(player, bytes);
}

void Silence(Player&, std::string_view) {}

void Unplug(Player& player, std::string_view) {
  player.bursts.push_back({player.delay, {}, true});
}

void SplitNext(Player& player, std::string_view count) {
  player.piece = static_cast<std::size_t>(ToInteger(count));
}

void Times(Player& player, std::string_view count) {
  player.times = ToInteger(count);
}

struct Step {
  std::string_view name;
  void (*play)(Player&, std::string_view rest);
};

constexpr std::array kSteps{
    Step{"ok", Ok},           Step{"seq", OtherSequence}, Step{"cmd", OtherCommand},
    Step{"raw", Raw},         Step{"silence", Silence},   Step{"unplug", Unplug},
    Step{"split", SplitNext}, Step{"times", Times},
};

const Step& FindStep(std::string_view name) {
  const auto* const found =
      std::find_if(kSteps.begin(), kSteps.end(), [&](const Step& s) { return s.name == name; });
  if (found == kSteps.end()) throw std::invalid_argument("unknown step " + std::string(name));
  return *found;
}

void Play(Player& player, std::string_view step) {
  if (!step.empty() && step[0] == '+') {
    player.delay += Micros(ToNumber(step.substr(1)));
    return;
  }
  const std::string_view name = TakeWord(step);
  FindStep(name).play(player, step);
}

std::vector<Burst> PlayAll(std::string_view steps, std::string_view frame) {
  // A frame too short to be one still gets an answer, to whatever it was.
  const std::string safe = frame.size() < 3 ? std::string("\x02 ?") : std::string(frame);
  Player player{safe};
  for (const std::string_view step : Split(steps, " ; ")) Play(player, step);
  return std::move(player.bursts);
}

}  // namespace

Reply ReadReply(std::string_view steps) {
  (void)PlayAll(steps, "\x02 ?");  // complains at once, not in the middle of a call
  return [text = std::string(steps)](std::string_view frame) { return PlayAll(text, frame); };
}

}  // namespace kestra::golden
