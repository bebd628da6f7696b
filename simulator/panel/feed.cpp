#include "panel/feed.hpp"

#include <utility>

namespace impresora {
namespace {

constexpr std::size_t kKept = 2'000;
constexpr int kListeners = 8;

}  // namespace

void Feed::Publish(std::string name, std::string data) {
  const std::lock_guard lock(mutex_);
  events_.push_back({++last_, std::move(name), std::move(data)});
  if (events_.size() > kKept) events_.pop_front();
  changed_.notify_all();
}

void Feed::StateChanged() {
  const std::lock_guard lock(mutex_);
  ++state_;
  changed_.notify_all();
}

Feed::Place Feed::Now() const {
  const std::lock_guard lock(mutex_);
  return {last_, state_};
}

// A place ahead of us is from a printer that ran before this one: everything is to be read anew.
Feed::News Feed::Wait(Place place, std::chrono::milliseconds longest) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, longest, [&] { return closed_ || HasNews(place); });
  News news{.events = {}, .gap = place.id > last_, .place = {last_, state_}};
  if (news.gap || place.id == last_) return news;
  const std::uint64_t first = last_ - events_.size() + 1;
  news.gap = place.id + 1 < first;
  if (news.gap) return news;
  const auto from = events_.begin() + static_cast<std::ptrdiff_t>(place.id + 1 - first);
  news.events.assign(from, events_.end());
  return news;
}

void Feed::Close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  changed_.notify_all();
}

bool Feed::Closed() const {
  const std::lock_guard lock(mutex_);
  return closed_;
}

bool Feed::Enter() {
  const std::lock_guard lock(mutex_);
  if (closed_ || listeners_ >= kListeners) return false;
  ++listeners_;
  return true;
}

void Feed::Leave() {
  const std::lock_guard lock(mutex_);
  --listeners_;
}

}  // namespace impresora
