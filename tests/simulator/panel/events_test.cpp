#include <atomic>

#include "loop.hpp"
#include "panel/feed.hpp"

namespace impresora {
namespace {

using std::chrono::milliseconds;

TEST(Feed, TellsWhatCameAfterAPlace) {
  Feed feed;
  const Feed::Place before = feed.Now();
  feed.Publish("papel", "1");
  feed.Publish("papel", "2");
  const Feed::News news = feed.Wait(before, milliseconds(0));
  ASSERT_EQ(news.events.size(), 2U);
  EXPECT_EQ(news.events[1].data, "2");
  EXPECT_FALSE(news.gap);
  EXPECT_TRUE(feed.Wait(news.place, milliseconds(0)).events.empty());
}

TEST(Feed, SaysWhenAListenerMissedSomething) {
  Feed feed;
  for (int i = 0; i < 3'000; ++i) feed.Publish("papel", "x");
  EXPECT_TRUE(feed.Wait({.id = 500}, milliseconds(0)).gap);
  EXPECT_FALSE(feed.Wait({.id = 1'000}, milliseconds(0)).gap);
  EXPECT_EQ(feed.Wait({.id = 1'000}, milliseconds(0)).events.size(), 2'000U);
  EXPECT_TRUE(feed.Wait({.id = 9'999}, milliseconds(0)).gap);  // of a printer that ran before
}

TEST(Feed, HasPlacesForAFewListeners) {
  Feed feed;
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(feed.Enter());
  EXPECT_FALSE(feed.Enter());
  feed.Leave();
  EXPECT_TRUE(feed.Enter());
}

class PanelEvents : public prueba::Desk {
 protected:
  // Listens until `wanted` stands in what came; everything that came.
  std::string Listen(
      const std::string& wanted, const prueba::HeadFields& fields,
      const std::function<void()>& meanwhile = [] {}) {
    std::string heard;
    bool begun = false;
    prueba::ListenToPanel(port, fields, [&](const std::string& so_far) {
      heard = so_far;
      if (!begun && heard.find("event: estado") != std::string::npos) {
        begun = true;
        meanwhile();
      }
      return heard.find(wanted) != std::string::npos;
    });
    return heard;
  }
};

TEST_F(PanelEvents, BeginWithTheStateAndGoOnWithWhatHappens) {
  const std::string heard = Listen("event: documento", {}, [this] { PrintTicket(); });
  EXPECT_NE(heard.find("retry: 1000\n\n"), std::string::npos);
  EXPECT_NE(heard.find("event: intercambio\ndata: {\"numero\":1,"), std::string::npos);
  EXPECT_NE(heard.find("event: papel\ndata: {\"texto\":\"TIQUE\""), std::string::npos);
  EXPECT_NE(heard.find("\"titulo\":\"TIQUE\""), std::string::npos);
}

TEST_F(PanelEvents, GoOnWhereAListenerLeftOff) {
  PrintTicket();
  const std::string heard = Listen("event: documento", {{"Last-Event-ID", "1"}});
  EXPECT_NE(heard.find("id: 2\n"), std::string::npos);
  EXPECT_EQ(heard.find("id: 1\n"), std::string::npos);
}

TEST_F(PanelEvents, SendEverybodyBackToTheStartWhoKnowsAnotherPrinter) {
  for (const char* const id : {"77777", "nada", "-1"}) {
    EXPECT_NE(Listen("event: salto", {{"Last-Event-ID", id}}).find("event: salto"),
              std::string::npos);
  }
}

TEST_F(PanelEvents, AChangeByHandIsTold) {
  const std::string heard =
      Listen("C080", {}, [this] { Post("/api/controles", R"({"sin_papel": true})"); });
  EXPECT_NE(heard.find("C080"), std::string::npos);
}

TEST_F(PanelEvents, APanelThatEndsLetsItsListenersGo) {
  std::atomic<bool> listening = false;
  std::thread listener([&] { Listen("nunca", {}, [&] { listening = true; }); });
  while (!listening) std::this_thread::yield();
  loop.Do([this] { panel.reset(); });
  listener.join();
}

}  // namespace
}  // namespace impresora
