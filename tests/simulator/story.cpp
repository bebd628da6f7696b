#include "story.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>

#include "machine/status.hpp"

namespace impresora::prueba {
namespace {

namespace fs = std::filesystem;

// The everyday commands, with what a story does not care about filled in: "$2" is the second field given
// with the word, or what stands behind "=".
constexpr std::array<std::pair<std::string_view, std::string_view>, 11> kWords{{
    {"ticket", "@|C"},
    {"item", "B|$1|$2|$3|$4=2100|$5=M|$7=0001|0000|$6=000000000"},
    {"end", "E|T"},
    {"invoice",
     "`|$1=T|C|$2=A|1|F|12|I|I|$5=Juan Perez|$7= |$3=CUIT|$4=20123456789|N|"
     "$6=Calle Falsa 123|~|~|~|~|C"},
    {"customer",
     "`|T|C|$1=A|1|F|12|$6=I|$2=I|$5=Juan Perez| |$3=CUIT|$4=20123456786|N|Calle 1|~|~|~|~|C"},
    {"line", "b|$1|$2|$3|$4=2100|$5=M|0001|0000|~|~|~|~|$6=000000000"},
    {"close", "e|$1=T|$2=A|~"},
    {"cancel", "d|~|~|C"},
    {"copies", "`|F|C|A|$1|F|12|I|I|Juan| |CUIT|20123456789|N|Calle 1|~|~|~|~|C"},
    {"sale", "@|C;B|$1=Pan|$2=1000|$3=1000|2100|M|0001|0000|000000000;E|T"},
    {"issue",
     "`|$1=T|C|$2=A|1|F|12|I|I|Juan Perez| |CUIT|20123456789|N|Calle Falsa 123|~|~|~|~|C;"
     "b|$3=Pan|$4=1000|$5=1000|2100|M|0001|0000|~|~|~|~|000000000;e|$1=T|$2=A|~"},
}};

int Number(std::string_view text) {
  return std::stoi(std::string(text));
}

Digits ReadDigits(std::string_view text) {
  const auto parts = Split(text, '.');
  return {Number(parts.at(0)), Number(parts.at(1))};
}

void Set(Settings& settings, std::string_view key, std::string_view value) {
  static const std::map<std::string_view, int Settings::*> kNumbers{
      {"closings", &Settings::closings_left}, {"lines", &Settings::lines_per_form}};
  static const std::map<std::string_view, Digits FieldDigits::*> kDigits{
      {"quantity", &FieldDigits::quantity},
      {"price", &FieldDigits::price},
      {"internal", &FieldDigits::internal_tax}};
  if (const auto number = kNumbers.find(key); number != kNumbers.end()) {
    settings.*number->second = Number(value);
  } else if (const auto digits = kDigits.find(key); digits != kDigits.end()) {
    settings.digits.*digits->second = ReadDigits(value);
  } else if (key == "family") {
    settings.family = value == "TQ" ? Family::kTicket : Family::kForm;
  } else if (key == "model") {
    settings.model = value;
  } else if (key == "condition") {
    settings.owner_iva = value.at(0);
  } else if (key == "strict_cuit") {
    settings.strict_cuit = true;
  } else if (key == "strict") {
    settings.strict = true;
  } else if (key == "texts") {
    const auto parts = Split(value, ',');
    settings.roll_texts = {Number(parts.at(0)), Number(parts.at(1)), Number(parts.at(2)),
                           Number(parts.at(3)), Number(parts.at(4))};
  } else if (key == "work") {
    settings.work_milliseconds.fill(static_cast<std::uint32_t>(Number(value)));
  } else {
    throw std::logic_error("there is no setting " + std::string(key));
  }
}

// The first word and, without the blanks between, what follows.
std::pair<std::string_view, std::string_view> Word(std::string_view line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  return {line.substr(0, end), line.substr(std::min(end + 1, line.size()))};
}

std::string_view Trimmed(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string Hex(std::uint16_t word) {
  std::string text(4, '0');
  for (std::size_t i = 0; i < 4; ++i) text[i] = "0123456789ABCDEF"[word >> (12 - 4 * i) & 15];
  return text;
}

bool Alike(std::string_view expected, std::string_view got) {
  return expected == "*" || expected == got;
}

// "0600" is the fiscal word, "C080/0600" both; a name asks for the errors alone.
bool WordsAre(std::string_view expected, const Answer& answer) {
  static const std::map<std::string_view, unsigned> kErrors{{"ok", 0},
                                                            {"unknown", kSummary | kUnknownCommand},
                                                            {"field", kSummary | kInvalidField},
                                                            {"state", kSummary | kWrongState},
                                                            {"overflow", kSummary | kOverflow}};
  if (const auto error = kErrors.find(expected); error != kErrors.end()) {
    constexpr unsigned kAll = kSummary | kUnknownCommand | kInvalidField | kWrongState | kOverflow;
    return (answer.fiscal & kAll) == error->second;
  }
  const auto words = Split(expected, '/');
  if (words.size() == 1) return Alike(words[0], Hex(answer.fiscal));
  return Alike(words[0], Hex(answer.printer)) && Alike(words[1], Hex(answer.fiscal));
}

// Fields of which "*" may be any, and "..." as many as there are; without any nobody asks for them.
bool FieldsAre(const std::vector<std::string>& expected, const std::vector<std::string>& got) {
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (expected[i] == "...") return true;
    if (i >= got.size() || !Alike(Unescaped(expected[i]), got[i])) return false;
  }
  return expected.empty() || expected.size() == got.size();
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string body = Unescaped(fields[0]);
  for (std::size_t i = 1; i < fields.size(); ++i) body.append(1, kFs).append(Unescaped(fields[i]));
  return body;
}

}  // namespace

std::string Story::Name() const {
  std::string name;
  bool begins = true;
  for (const char c : title) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (letter) name += static_cast<char>(begins && c >= 'a' ? c - 'a' + 'A' : c);
    begins = !letter && c != '\'';
  }
  return name;
}

std::vector<Story> ReadStories(const std::string& folder) {
  std::vector<Story> stories;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(IMPRESORA_HISTORIAS) / folder)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& path : files) {
    std::ifstream file(path);
    unsigned number = 0;
    for (std::string line; std::getline(file, line);) {
      ++number;
      if (line.substr(0, 3) == "== ") {
        stories.push_back({path.stem().string(), line.substr(3), {}});
      } else if (!line.empty() && line.front() != '#') {
        stories.at(stories.size() - 1).lines.emplace_back(number, line);
      }
    }
  }
  return stories;
}

std::string Unescaped(std::string_view text) {
  if (text == "~") return kEmpty;
  std::string plain;
  const std::string from(text);
  static const std::regex escape(R"(\\x([0-9A-F]{2})|\\(n)|\{(.)\*(\d+)\})");
  auto last = from.cbegin();
  for (std::sregex_iterator at(from.begin(), from.end(), escape), end; at != end; ++at) {
    plain.append(last, (*at)[0].first);
    if ((*at)[1].matched) plain += static_cast<char>(std::stoi((*at)[1].str(), nullptr, 16));
    if ((*at)[2].matched) plain += '\n';
    if ((*at)[3].matched) plain.append(std::stoul((*at)[4].str()), (*at)[3].str()[0]);
    last = (*at)[0].second;
  }
  return plain.append(last, from.cend());
}

std::string Visible(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    if (c == kFs) {
      text += '|';
    } else if (c < ' ' || c == '\x7F') {
      text += "\\x" + Hex(static_cast<std::uint8_t>(c)).substr(2);
    } else {
      text += c;
    }
  }
  return text;
}

std::vector<std::string> Split(std::string_view text, char at) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == at) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

std::vector<std::string> BodiesOf(std::string_view line) {
  const auto given = Split(line, '|');
  const auto* const word = std::find_if(
      kWords.begin(), kWords.end(), [&given](const auto& row) { return row.first == given[0]; });
  if (word == kWords.end()) {
    const std::string first(Word(given[0]).first);
    const bool a_word =
        first.size() > 2 && first.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == first.npos;
    if (a_word) throw std::logic_error("there is no word " + first);
    return {Joined(given)};
  }
  std::vector<std::string> bodies;
  for (const std::string& one : Split(word->second, ';')) {
    auto fields = Split(one, '|');
    for (std::string& field : fields) {
      if (field.front() != '$') continue;
      const auto which = static_cast<std::size_t>(field[1] - '0');
      const bool said = which < given.size() && !given[which].empty();
      field = said ? given[which] : field.size() > 3 ? field.substr(3) : std::string();
    }
    bodies.push_back(Joined(fields));
  }
  return bodies;
}

Player::Player() {
  verbs_["drawer"] = [this](std::string_view times) {
    Expect(times, std::to_string(GetPrinter().DrawerOpenings()));
  };
  verbs_["set"] = [this](std::string_view rest) {
    const auto [key, value] = Word(rest);
    const Control* const control = FindControl(key);
    const auto number = control == nullptr ? std::nullopt : ReadControl(*control, value);
    Expect(number && GetPrinter().Set(*control, *number) &&
               control->get(GetPrinter().GetMachine()) == *number,
           rest, "that cannot be set");
  };
  verbs_["get"] = [this](std::string_view rest) {
    const auto [key, value] = Word(rest);
    const Control& control = *FindControl(key);
    Expect(value, ControlText(control, control.get(GetPrinter().GetMachine())));
  };
  verbs_["none"] = [this](std::string_view) { Expect("", texts_.at(text_name_)()); };
  verbs_["lamp"] = [this](std::string_view rest) {
    const auto [key, forced] = Word(rest);
    ForceLamp(GetPrinter().GetMachine(), *FindLamp(key),
              forced == "on"    ? Forced::kOn
              : forced == "off" ? Forced::kOff
                                : Forced::kNo);
  };
}

void Player::Expect(std::string_view expected, std::string_view got) {
  Expect(expected == got, expected, got);
}

void Player::Expect(bool matched, std::string_view expected, std::string_view got) {
  if (matched) return;
  wrong_ += where_ + "expected " + std::string(expected) + "\n    got " + std::string(got) + "\n";
}

// Lines with a question mark and those set in below them are one way to go on from what stands
// above; each way begins anew.
std::string Player::Play(const Story& story) {
  wrong_.clear();
  std::vector<std::pair<unsigned, std::string>> common;
  std::vector<decltype(common)> ways;
  bool aside = false;
  for (const auto& [number, line] : story.lines) {
    if (line.substr(0, 2) == "? ") {
      ways.push_back(common);
      ways.back().emplace_back(number, line.substr(2));
      aside = true;
    } else if (aside && line.substr(0, 2) == "  ") {
      ways.back().emplace_back(number, line.substr(2));
    } else {
      common.emplace_back(number, line);
      aside = false;
    }
  }
  if (ways.empty() || !aside) ways.push_back(common);
  for (const auto& way : ways) {
    try {
      PlayLines(way);
    } catch (const std::logic_error& mistake) {
      wrong_ += where_ + "cannot be read: " + mistake.what() + "\n";
    }
  }
  return wrong_;
}

void Player::PlayLines(const std::vector<std::pair<unsigned, std::string>>& lines) {
  Settings settings;
  text_name_ = "paper";
  std::size_t at = 0;
  for (; at < lines.size() && lines[at].second.substr(0, 5) == "with "; ++at) {
    where_ = std::to_string(lines[at].first) + ": ";
    const auto [key, value] = Word(std::string_view(lines[at].second).substr(5));
    Set(settings, key, value);
  }
  Begin(settings);
  while (at < lines.size()) {
    const auto& [number, line] = lines[at];
    where_ = std::to_string(number) + ": " + line + "\n    ";
    if (line.front() != '|') {
      PlayLine(std::string_view(line).substr(0, line.find("  # ")));
      ++at;
      continue;
    }
    std::string block;
    for (; at < lines.size() && lines[at].second.front() == '|'; ++at) {
      block += Unescaped(std::string_view(lines[at].second).substr(1)) + "\n";
    }
    Expect("\n" + block, "\n" + texts_.at(text_name_)());
  }
}

void Player::PlayLine(std::string_view line) {
  line = Trimmed(line);
  const auto [word, rest] = Word(line);
  if (texts_.contains(word)) {
    text_name_ = word;
  } else if (const auto verb = verbs_.find(word); verb != verbs_.end()) {
    verb->second(rest);
  } else if (rest.substr(0, 2) == "x " && !word.empty()) {
    for (int left = Number(word); left > 0; --left) PlayLine(rest.substr(2));
  } else if (line.size() > 1 && line.substr(line.size() - 2) == " >") {
    Command(Trimmed(line.substr(0, line.size() - 2)), "");
  } else if (const std::size_t arrow = line.rfind(" > "); arrow != line.npos) {
    Command(Trimmed(line.substr(0, arrow)), line.substr(arrow + 3));
  } else {
    Command(line, "*");
  }
}

ShopPlayer::ShopPlayer() {
  texts_["paper"] = [this] {
    Paper();
    return std::exchange(paper_, {});
  };
  texts_["receipts"] = [this] {
    std::string told;
    for (const Receipt& r : GetPrinter().TakeReceipts()) {
      told += std::to_string(r.ordinal) + " " + r.kind;
      for (const char mark : {r.letter, r.code}) {
        if (mark != '\0') told.append(" ").append(1, mark);
      }
      told += " " + std::to_string(r.number) + " " + std::to_string(r.total) + " " +
              std::to_string(r.iva) + (r.cancelled ? " cancelado " : " ") + PrintedTime(r.moment);
      if (!r.customer_id.empty()) told += " " + r.customer_id;
      told += "\n";
    }
    return told;
  };
  verbs_["tear"] = [this](std::string_view) {
    Paper();
    paper_.clear();
  };
  verbs_["starts"] = [this](std::string_view what) {
    Expect(Paper().substr(0, what.size()) == what, what, Paper());
  };
  verbs_["words"] = [this](std::string_view wanted) {
    Expect(wanted, Hex(GetPrinter().FiscalWord()));
  };
  verbs_["has"] = [this](std::string_view what) {
    Expect(Paper().find(Unescaped(what)) != std::string::npos, what, Paper());
  };
  verbs_["count"] = [this](std::string_view rest) {
    const auto [times, raw] = Word(rest);
    const std::string what = Unescaped(raw);
    int count = 0;
    for (std::size_t at = Paper().find(what); at != std::string::npos;
         at = paper_.find(what, at + 1)) {
      ++count;
    }
    Expect(count == Number(times), rest, std::to_string(count) + " in\n" + paper_);
  };
  verbs_["order"] = [this](std::string_view rest) {
    std::size_t at = 0;
    for (const std::string& part : Split(rest, '|')) {
      at = std::min(Paper().find(part, at), Paper().size());
      Expect(at < paper_.size(), part, paper_);
    }
  };
  verbs_["total"] = [this](std::string_view wanted) {
    const bool ticket = GetPrinter().FiscalWord() == 0x1600;
    const Answer answer = shop_->Send({ticket ? "C" : "c", "N", kEmpty});
    Expect(std::string(12 - wanted.size(), '0').append(wanted),
           answer.fields.size() > 2 ? answer.fields[2] : Hex(answer.fiscal));
  };
  verbs_["wait"] = [this](std::string_view seconds) { shop_->now += Number(seconds); };
  verbs_["restart"] = [this](std::string_view) { GetPrinter().Restart(); };
}

void ShopPlayer::Begin(const Settings& settings) {
  shop_ = std::make_unique<Shop>(settings);
  paper_.clear();
}

void ShopPlayer::Command(std::string_view line, std::string_view expected) {
  Answer answer;
  for (const std::string& body : BodiesOf(line)) answer = shop_->SendBody(body);
  std::string got = Hex(answer.printer) + "/" + Hex(answer.fiscal);
  for (const std::string& field : answer.fields) got += "|" + Visible(field);
  auto fields = Split(expected, '|');
  const std::string words = fields.front();
  fields.erase(fields.begin());
  Expect(WordsAre(words, answer) && FieldsAre(fields, answer.fields), expected, got);
}

}  // namespace impresora::prueba
