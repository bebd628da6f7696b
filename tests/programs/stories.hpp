#pragma once

#include <cstdio>
#include <string_view>

// A program of many stories: the test that starts it names the one to be told. What a story finds broken is
// printed and counted.
namespace kestra {

inline int failures = 0;

inline void Fail(std::string_view about, std::string_view what = "") {
  std::printf("broken: %.*s %.*s\n", static_cast<int>(about.size()), about.data(),
              static_cast<int>(what.size()), what.data());
  ++failures;
}

inline void Expect(bool held, std::string_view about, std::string_view what = "") {
  if (!held) Fail(about, what);
}

class Story {
 public:
  Story(std::string_view name, void (*tell)()) : name_(name), tell_(tell), next_(first) {
    first = this;
  }

  // 0 when all that it promises held; 2 when there is no such story.
  static int Tell(std::string_view name) {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    for (const Story* story = first; story != nullptr; story = story->next_) {
      if (story->name_ != name) continue;
      story->tell_();
      return failures == 0 ? 0 : 1;
    }
    std::fprintf(stderr, "no such story\n");
    return 2;
  }

  static void List() {
    for (const Story* story = first; story != nullptr; story = story->next_) {
      std::printf("%.*s\n", static_cast<int>(story->name_.size()), story->name_.data());
    }
  }

 private:
  static inline const Story* first = nullptr;

  std::string_view name_;
  void (*tell_)();
  const Story* next_;
};

#define STORY(name)                                       \
  static void name();                                     \
  static const ::kestra::Story story_##name(#name, name); \
  static void name()

}  // namespace kestra
