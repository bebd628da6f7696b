#pragma once

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host.hpp"

namespace impresora::prueba {

// A test as a text: a line for each thing done, with what must come of it. stories/README.md has the
// language.
struct Story {
  std::string file, title;
  std::vector<std::pair<unsigned, std::string>> lines;  // with their numbers

  std::string Name() const;  // the title in one word, as test programs want it
};

inline void PrintTo(const Story& story, std::ostream* out) {
  *out << story.title;
}

// Those of every file in that folder of stories/.
std::vector<Story> ReadStories(const std::string& folder);

// "\xF4" becomes a byte, "{a*81}" as many letters, a lonely "~" the field that says it is empty.
std::string Unescaped(std::string_view text);
// The contrary, for what a test says.
std::string Visible(std::string_view bytes);
std::vector<std::string> Split(std::string_view text, char at);
// Commands and fields as they stand in frames, of "@|C" or of an everyday word: "item|Pan|1000|500".
std::vector<std::string> BodiesOf(std::string_view line);

// Plays stories; what stands behind the words is its heirs'.
class Player {
 public:
  using Verb = std::function<void(std::string_view)>;

  Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  virtual ~Player() = default;

  // What did not come as the story has it; empty when all did.
  std::string Play(const Story& story);

 protected:
  virtual void Begin(const Settings& settings) = 0;
  // A line that begins with none of the verbs: `expected` stands behind its " > ".
  virtual void Command(std::string_view line, std::string_view expected) = 0;
  virtual Printer& GetPrinter() = 0;

  // `matched` is false when something differs; the words tell what there was.
  void Expect(std::string_view expected, std::string_view got);
  void Expect(bool matched, std::string_view expected, std::string_view got);

  std::map<std::string, Verb, std::less<>> verbs_;
  // What lines with a bar in front are compared with, by the name in the line above them.
  std::map<std::string, std::function<std::string()>, std::less<>> texts_;

 private:
  void PlayLines(const std::vector<std::pair<unsigned, std::string>>& lines);
  void PlayLine(std::string_view line);

  std::string where_, wrong_, text_name_;
};

// A printer's commands, their answers and its paper.
class ShopPlayer : public Player {
 public:
  ShopPlayer();

 protected:
  void Begin(const Settings& settings) override;
  void Command(std::string_view line, std::string_view expected) override;
  Printer& GetPrinter() override { return shop_->printer; }
  // The paper since it was torn off.
  const std::string& Paper() { return paper_ += shop_->PaperText(); }

  std::unique_ptr<Shop> shop_;

 private:
  std::string paper_;
};

}  // namespace impresora::prueba
