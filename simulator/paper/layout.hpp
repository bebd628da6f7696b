#pragma once

#include <string_view>

#include "machine/machine.hpp"

namespace impresora {

inline constexpr std::string_view kNoFiscalValue = "SIN VALIDEZ FISCAL";

// What each document looks like on paper.
void PrintLetterhead(Machine& m);
void PrintDocumentHead(Machine& m);
void PrintItem(Machine& m, const Item& item, std::string_view note, int sign);
void PrintCorrection(Machine& m, std::string_view text, std::int64_t amount);
void PrintSubtotal(Machine& m);
void PrintTotal(Machine& m);
void PrintPayment(Machine& m, const Payment& payment);
void PrintChange(Machine& m, std::int64_t change);
void PrintFoot(Machine& m, Paper::Style style = Paper::Style::kLogo);
void PrintCancelled(Machine& m);
void PrintTransport(Machine& m, bool closing);
void PrintPowerCut(Machine& m);

// The further papers of a document that was opened with copies; after its foot.
void PrintCopies(Machine& m);

void PrintNonFiscalHead(Machine& m);
void PrintNonFiscalFoot(Machine& m);

void PrintDailyReport(Machine& m, char type, std::uint32_t number);
void PrintClosingList(Machine& m, const std::vector<DailyClosing>& closings, bool detailed);

}  // namespace impresora
