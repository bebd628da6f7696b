#include "platform/posix/dialog_text.hpp"

#include <gtest/gtest.h>

#include "base/ansi.hpp"

namespace kestra {
namespace {

Report Report() {
  return {.printer = "4000",
          .fiscal = "0104",
          .rows = {{0, 2, true, false, "Error y/o falla de impresora", "Consulte."},
                   {0, 14, true, true, "Impresora sin papel", "Verifique el papel."},
                   {1, 2, false, true, "Bateria Baja", "Consulte a su técnico fiscal."_ansi},
                   {1, 3, true, false, "Comando no reconocido", "Error interno."}}};
}

TEST(DialogText, ControlCharactersReachNoTerminal) {
  struct Row {
    const char* why;
    std::string text;
    std::string shown;
  };
  const Row rows[] = {
      {"letters and accents stay", "Envío 1"_ansi.data(), "Envío 1"_ansi.data()},
      {"CR is a line break", "a\rb", "a\nb"},
      {"CR LF is one line break", "a\r\nb", "a\nb"},
      {"LF is a line break", "a\n\nb", "a\n\nb"},
      {"a tab is a blank", "a\tb", "a b"},
      {"a framed command",
       "\x02 K\x1C"
       "1\x03",
       "<02> K<1C>1<03>"},
      {"an escape sequence", "\x1B[2J", "<1B>[2J"},
      {"a zero byte", std::string("a\0b", 3), "a<00>b"},
      {"delete", "\x7F", "<7F>"},
      {"bytes that are controls in the upper half", "\x81\x8D\x8F\x90\x9D", "<81><8D><8F><90><9D>"},
  };
  for (const Row& row : rows) EXPECT_EQ(HarmlessText(row.text), row.shown) << row.why;
}

TEST(DialogText, AQuestionSaysWhatToPress) {
  EXPECT_EQ(MessageDialog("EP_ReporteX()", "Envia?", kBoxYesNoQuestion),
            "\n--- Envia? ---\nEP_ReporteX()\nS = Sí, N = No: "_ansi);
}

TEST(DialogText, AMessageWithoutATitleHasTheLibrarysName) {
  EXPECT_EQ(MessageDialog("Error en el comando Enviar", "", kBoxOk),
            "\n--- Kestra ---\nError en el comando Enviar\nEnter = Aceptar: ");
}

TEST(DialogText, AStatusReportShowsEveryRowAndTheHintsOfThoseThatAreLit) {
  EXPECT_EQ(StatusReportDialog(Report()),
            "\a\n--- Error al ejecutar comando fiscal ---\n"
            "Estado Impresora\n"
            "  [ ] Error y/o falla de impresora\n"
            "  [!] Impresora sin papel\n"
            "      Verifique el papel.\n"
            "Estado Fiscal\n"
            "  [i] Bateria Baja\n"
            "      Consulte a su técnico fiscal.\n"
            "  [ ] Comando no reconocido\n"
            "Estados\n"
            "  Impresora: 4000  Fiscal: 0104\n"
            "R = Reintentar, Enter = Cerrar: "_ansi);
}

TEST(DialogText, TheMemoryWarningSaysAllOfIt) {
  const std::string dialog = MemoryFullDialog();
  EXPECT_NE(dialog.find("--- ATENCIÓN ---\nATENCIÓN!\nRestan menos de 30"_ansi), std::string::npos);
  EXPECT_NE(dialog.find("\nEnter = Cerrar: "), std::string::npos);
}

TEST(DialogText, NotesAreOneLineEach) {
  EXPECT_EQ(MessageNote("uno\rdos\x1B", "Envia?", kBoxYesNoQuestion),
            "kestra: pregunta \"Envia?\": uno dos<1B> | sin operador, se responde: No\n");
  EXPECT_EQ(MessageNote("aviso", "", kBoxOk),
            "kestra: mensaje \"Kestra\": aviso | sin operador, se responde: Aceptar\n");
  EXPECT_EQ(StatusReportNote(Report()),
            "kestra: informe \"Error al ejecutar comando fiscal\": Impresora: 4000  Fiscal: 0104; "
            "Impresora sin papel; Bateria Baja | sin operador, se responde: Cerrar\n");
  EXPECT_EQ(MemoryFullNote().find("kestra: aviso \"ATENCIÓN\": Restan menos de 30"_ansi), 0u);
}

TEST(DialogText, TypedAnswersAreReadWithoutRegardToCase) {
  for (const char* const line : {"s", "S", " si ", "SI\r", "S\xED"}) {
    EXPECT_EQ(TypedAnswer(line), Typed::kYes) << line;
  }
  for (const char* const line : {"n", "N", "no", " NO "}) {
    EXPECT_EQ(TypedAnswer(line), Typed::kNo) << line;
  }
  for (const char* const line : {"", " ", "x", "sn", "nunca"}) {
    EXPECT_EQ(TypedAnswer(line), Typed::kUnclear) << line;
  }
  for (const char* const line : {"r", " R ", "reintentar"}) EXPECT_TRUE(TypedRetry(line)) << line;
  for (const char* const line : {"", "s", "rr", "c"}) EXPECT_FALSE(TypedRetry(line)) << line;
}

}  // namespace
}  // namespace kestra
