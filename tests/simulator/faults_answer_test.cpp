// Each action on an answer, shown by the bytes that arrive.
#include <gtest/gtest.h>

#include "faults.hpp"

namespace impresora {
namespace {

using prueba::Bench;
using prueba::Body;
using prueba::Heard;
using std::chrono::milliseconds;
using std::chrono::seconds;

// Cutting the paper is answered with this.
const std::string kRight = Frame(40, Body({"K", "0080", "0600"}));

std::string With(std::size_t index, std::size_t count, std::string_view bytes) {
  return std::string(kRight).replace(index, count, bytes);
}

struct Case {
  std::string_view action;
  std::string heard;
};

TEST(FaultsOfAnswers, EachActionShowsInTheBytes) {
  const std::string flipped_k(1, static_cast<char>('K' ^ 0xFF));
  const std::vector<Case> cases{
      {"perder byte 1", kRight.substr(1)},
      {"perder byte -1", kRight.substr(0, 17)},
      {"perder byte 19", kRight},
      {"duplicar byte 3", With(2, 1, "KK")},
      {"invertir byte 3", With(2, 1, flipped_k)},
      {"invertir byte 3 con 20", With(2, 1, "k")},
      {"cambiar byte 3 por 4C", With(2, 1, "L")},
      {"insertar 4142 en byte 3", With(2, 0, "AB")},
      {"insertar \"A\\02\" tras byte 3", With(3, 0, "A\x02")},
      {"truncar en byte 5", kRight.substr(0, 4)},
      {"truncar en byte 1", ""},
      {"suma mala", With(17, 1, kRight[17] == '0' ? "1" : "0")},
      {"secuencia +1", Frame(41, Body({"K", "0080", "0600"}))},
      {"secuencia -1", Frame(39, Body({"K", "0080", "0600"}))},
      {"secuencia 33", Frame(33, Body({"K", "0080", "0600"}))},
      {"comando L", Frame(40, Body({"L", "0080", "0600"}))},
      {"comando 4C", Frame(40, Body({"L", "0080", "0600"}))},
      {"quitar campo fiscal", Frame(40, Body({"K", "0080"}))},
      {"quitar campo 1", kRight},
      {"vaciar campo impresora", Frame(40, std::string("K\x1C\x1C") + "0600")},
      {"agregar campo \"X\"", Frame(40, Body({"K", "0080", "0600", "X"}))},
      {"agregar campo 58 antes de fiscal", Frame(40, Body({"K", "0080", "X", "0600"}))},
      {"cambiar campo fiscal por \"06G0\"", Frame(40, Body({"K", "0080", "06G0"}))},
      {"cambiar campo -2 por \"1\"", Frame(40, Body({"K", "1", "0600"}))},
      {"minúsculas", kRight},
      {"encender fiscal_bateria_baja", Frame(40, Body({"K", "0080", "8604"}))},
      {"encender fiscal 000C, minúsculas", Frame(40, Body({"K", "0080", "860c"}))},
      {"encender impresora 4008", Frame(40, Body({"K", "C088", "0600"}))},
      {"encender impresora 4008, borrar impresora 8000", Frame(40, Body({"K", "4088", "0600"}))},
      {"borrar impresora_buffer_vacio", Frame(40, Body({"K", "0000", "0600"}))},
      {"nak", std::string(1, kNak)},
      {"callar", ""},
      {"anterior", kRight},
      {"ruido 414243", "ABC" + kRight},
      {"ruido \"\\02 \"", "\x02 " + kRight},
      {"desenchufar", ""},
      {"desenchufar en byte 4", kRight.substr(0, 3)},
      {"desenchufar en byte -1", kRight.substr(0, 17)},
      {"apagar", ""},
      {"apagar 1 s en byte 4", kRight.substr(0, 3)},
      {"perder byte 1, perder byte 1", kRight.substr(2)},
      {"perder byte 1; secuencia +1", Frame(41, Body({"K", "0080", "0600"})).substr(1)},
      {"anterior, suma mala, ruido 41", "A" + With(17, 1, kRight[17] == '0' ? "1" : "0")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.action);
    Bench bench("respuesta 1: " + std::string(c.action));
    EXPECT_EQ(bench.wrong, "");
    EXPECT_EQ(bench.All(40, {"K"}), c.heard);
    EXPECT_EQ(bench.All(41, {"K"}), Frame(41, Body({"K", "0080", "0600"})));
  }
}

TEST(FaultsOfAnswers, TheFieldsOfDataAreCountedBehindTheWords) {
  const std::vector<Case> cases{
      {"quitar campo 1", Frame(40, Body({"Y", "0080", "0600", "103000"}))},
      {"quitar campo -1", Frame(40, Body({"Y", "0080", "0600", "261121"}))},
      {"vaciar campo 2", Frame(40, Body({"Y", "0080", "0600", "261121"}) + "\x1C")},
      {"quitar campo 1, quitar campo 1", Frame(40, Body({"Y", "0080", "0600"}))},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.action);
    Bench bench("respuesta de Y: " + std::string(c.action));
    EXPECT_EQ(bench.All(40, {"Y"}), c.heard);
  }
}

TEST(FaultsOfAnswers, TheFormerAnswerComesInsteadOrFirst) {
  const std::string old = Frame(40, Body({"K", "0080", "0600"}));
  const std::string own = Frame(41, Body({"^", "0080", "0600", "1", ""}));
  Bench bench("respuesta 2: anterior\nrespuesta 3: anterior antes");
  EXPECT_EQ(bench.All(40, {"K"}), old);
  EXPECT_EQ(bench.All(41, {"^", "1"}), old);
  EXPECT_EQ(bench.All(42, {"K"}), own + Frame(42, Body({"K", "0080", "0600"})));
}

struct TimedCase {
  std::string_view action;
  Heard heard;
};

TEST(FaultsOfAnswers, TimesAreKeptToTheMicrosecond) {
  const std::string busy(1, kDc2);
  const auto at = [](auto time) { return Micros(time); };
  const std::vector<TimedCase> cases{
      {"demorar 3 s", {{at(seconds(3)), kRight}}},
      {"demorar 1.5s", {{at(milliseconds(1500)), kRight}}},
      {"demorar 1 s, demorar 20 ms", {{at(milliseconds(1020)), kRight}}},
      {"ocupar 1200 ms",
       {{at(milliseconds(500)), busy}, {at(seconds(1)), busy}, {at(milliseconds(1200)), kRight}}},
      {"demorar 1 s, ocupar 600 ms",
       {{at(milliseconds(500)), busy}, {at(milliseconds(1600)), kRight}}},
      {"partir en byte 4 con 50 ms",
       {{at(0), kRight.substr(0, 3)}, {at(milliseconds(50)), kRight.substr(3)}}},
      {"partir en byte -4 con 2 min",
       {{at(0), kRight.substr(0, 14)}, {at(seconds(120)), kRight.substr(14)}}},
      {"partir en 3 con 1 s",
       {{at(0), kRight.substr(0, 6)},
        {at(seconds(1)), kRight.substr(6, 6)},
        {at(seconds(2)), kRight.substr(12)}}},
      {"demorar 1 s, partir en byte 2 con 1 s, ruido 41",
       {{at(seconds(1)), "A\x02"}, {at(seconds(2)), kRight.substr(1)}}},
      {"demorar 1 s, desenchufar en byte 2", {{at(seconds(1)), "\x02"}}},
  };
  for (const TimedCase& c : cases) {
    SCOPED_TRACE(c.action);
    Bench bench("respuesta 1: " + std::string(c.action));
    EXPECT_EQ(bench.wrong, "");
    EXPECT_EQ(bench.Hear(40, {"K"}), c.heard);
  }
}

TEST(FaultsOfAnswers, NoiseByChanceHasNoByteThatSteersTheLine) {
  Bench bench("siempre: ruido 200 bytes");
  const std::string all = bench.All(40, {"K"});
  ASSERT_EQ(all.size(), 218U);
  EXPECT_EQ(all.substr(200), kRight);
  for (const char c : all.substr(0, 200)) EXPECT_LT(c, 0);
}

TEST(FaultsOfAnswers, ASlowLineLosesNothingOfWhatComesBeforeThePlugIsPulled) {
  prueba::StoppedClock clock;
  Session session({}, clock, {.baud = 9600});
  session.Faults().Add("siempre: desenchufar en byte 4");
  Micros now{};
  session.Receive(Frame(40, "K"), now);
  std::string heard;
  Output output;
  while (!output.hang_up) {
    ASSERT_TRUE(session.NextDue());
    now = std::max(now, *session.NextDue());
    output = session.Advance(now);
    heard += output.bytes;
  }
  EXPECT_EQ(heard, kRight.substr(0, 3));
  EXPECT_EQ(now, Micros(11 * 1041));
}

}  // namespace
}  // namespace impresora
