#include "fiscal/calendar.hpp"
#include "memory/memory_file.hpp"

namespace impresora {
namespace {

std::string LetterText(char letter) {
  return letter == '\0' ? std::string() : std::string(1, letter);
}

// ---- The day and the machine ----

void WriteMovement(Statements& sql, std::uint32_t closing, std::string_view operation,
                   const Movement& movement) {
  sql("INSERT OR REPLACE INTO movimientos VALUES (?, ?, ?, ?, ?, ?)")
      .Bind(closing)
      .Bind(operation)
      .Bind(movement.documents)
      .Bind(movement.total)
      .Bind(movement.internal)
      .Bind(movement.perceptions)
      .Run();
  sql("DELETE FROM tasas WHERE cierre = ? AND operacion = ?").Bind(closing).Bind(operation).Run();
  for (const RateTotal& row : movement.rates) {
    sql("INSERT INTO tasas VALUES (?, ?, ?, ?, ?)")
        .Bind(closing)
        .Bind(operation)
        .Bind(row.rate)
        .Bind(row.net)
        .Bind(row.iva)
        .Run();
  }
}

void BindDay(Statement& put, const Day& day) {
  if (day.opened) {
    put.Bind(*day.opened);
  } else {
    put.BindNothing();
  }
  put.Bind(day.unpriced).Bind(day.cancelled).Bind(day.non_fiscal);
}

void WriteState(Statements& sql, const Books& books) {
  Statement& put = sql("INSERT OR REPLACE INTO estado VALUES (1, ?, ?, ?, ?, ?, ?, ?, ?)");
  put.Bind(books.clock_offset)
      .Bind(books.closings_left)
      .Bind(books.finished)
      .Bind(books.non_fiscal_open ? 1 : 0);
  BindDay(put, books.day);
  put.Run();
}

void WriteNumbering(Statements& sql, const Numbering& last, const Numbering& numbering) {
  for (const auto& [key, number] : numbering.All()) {
    if (last.Last(key.first, key.second) == number) continue;
    sql("INSERT OR REPLACE INTO numeracion VALUES (?, ?, ?)")
        .Bind(static_cast<int>(key.first))
        .Bind(LetterText(key.second))
        .Bind(number)
        .Run();
  }
}

template <std::size_t N>
void WriteLines(Statements& sql, int first, const std::array<std::string, N>& last,
                const std::array<std::string, N>& lines) {
  for (std::size_t i = 0; i < N; ++i) {
    if (last.at(i) == lines.at(i)) continue;
    sql("INSERT OR REPLACE INTO encabezados VALUES (?, ?)")
        .Bind(first + static_cast<int>(i))
        .BindBytes(lines.at(i))
        .Run();
  }
}

// ---- The open document ----

// Writes the rows that are not as they were; `put` binds one and runs it.
template <class Row, class Put>
void WriteRows(const std::vector<Row>& last, const std::vector<Row>& rows, Put put) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i < last.size() && last[i] == rows[i]) continue;
    put(static_cast<std::int64_t>(i), rows[i]);
  }
}

void ForgetDocument(Statements& sql) {
  sql("DELETE FROM documento").Run();
  sql("DELETE FROM documento_domicilio").Run();
  sql("DELETE FROM documento_tasas").Run();
  sql("DELETE FROM documento_items").Run();
  sql("DELETE FROM documento_pagos").Run();
}

void WriteHead(Statements& sql, const Document& d) {
  sql("INSERT OR REPLACE INTO documento VALUES "
      "(1, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
      .Bind(LetterText(d.Kind().code))
      .Bind(LetterText(d.letter))
      .Bind(d.number)
      .Bind(d.largest_total)
      .BindBytes(d.customer.name)
      .BindBytes(d.customer.name_more)
      .BindBytes(d.customer.id_kind)
      .BindBytes(d.customer.id_number)
      .Bind(LetterText(d.customer.iva))
      .Bind(d.internal)
      .Bind(d.perceptions)
      .Bind(d.units)
      .Bind(d.lines)
      .Bind(d.paying ? 1 : 0)
      .Bind(d.between_sheets ? 1 : 0)
      .Bind(d.lines_on_sheet)
      .Bind(d.copies)
      .Run();
}

void WriteContent(Statements& sql, const DocumentContent& last, const DocumentContent& now) {
  WriteRows(last.customer.address, now.customer.address, [&](std::int64_t n, const auto& line) {
    sql("INSERT OR REPLACE INTO documento_domicilio VALUES (?, ?)").Bind(n).BindBytes(line).Run();
  });
  WriteRows(last.bases, now.bases, [&](std::int64_t n, const RateBase& base) {
    Statement& put = sql("INSERT OR REPLACE INTO documento_tasas VALUES (?, ?, ?)");
    put.Bind(n).Bind(base.rate).Bind(base.amount).Run();
  });
  WriteRows(last.sold, now.sold, [&](std::int64_t n, const SoldItem& item) {
    Statement& put = sql("INSERT OR REPLACE INTO documento_items VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    put.Bind(n).BindBytes(item.description).Bind(item.price).Bind(item.rate);
    put.Bind(item.internal_each).Bind(item.quantity).Bind(item.taxed).Bind(item.internal).Run();
  });
  WriteRows(last.payments, now.payments, [&](std::int64_t n, const Payment& payment) {
    Statement& put = sql("INSERT OR REPLACE INTO documento_pagos VALUES (?, ?, ?)");
    put.Bind(n).BindBytes(payment.description).Bind(payment.amount).Run();
  });
}

void WritePaper(Statements& sql, const std::vector<PaperLine>& last,
                const std::vector<PaperLine>& now) {
  const bool shorter = now.size() < last.size();
  if (shorter) sql("DELETE FROM documento_papel").Run();
  const auto put_line = [&](std::int64_t n, const PaperLine& line) {
    Statement& put = sql("INSERT OR REPLACE INTO documento_papel VALUES (?, ?, ?)");
    put.Bind(n).Bind(line.text).Bind(static_cast<int>(line.style)).Run();
  };
  WriteRows(shorter ? std::vector<PaperLine>() : last, now, put_line);
}

bool SameDocument(const std::optional<Document>& a, const std::optional<Document>& b) {
  return a && b && &a->Kind() == &b->Kind() && a->letter == b->letter && a->number == b->number;
}

void WriteDocument(Statements& sql, const std::optional<Document>& last,
                   const std::optional<Document>& now) {
  if (last == now) return;
  const bool same = SameDocument(last, now);
  if (!same) ForgetDocument(sql);
  if (!now) return;
  WriteHead(sql, *now);
  WriteContent(sql, same ? static_cast<const DocumentContent&>(*last) : DocumentContent{}, *now);
}

std::string_view ClassWords(ReceiptClass receipt_class) {
  if (receipt_class == ReceiptClass::kFiscal) return "fiscal";
  return receipt_class == ReceiptClass::kNonFiscal ? "no fiscal" : "informe";
}

}  // namespace

void WriteBooks(Statements& statements, const Books& last, const Books& books) {
  WriteState(statements, books);
  WriteNumbering(statements, last.numbering, books.numbering);
  WriteLines(statements, 1, last.header, books.header);
  WriteLines(statements, 1 + kHeaderLines, last.trailer, books.trailer);
  if (!(last.day == books.day)) {
    WriteMovement(statements, kOpenDay, kSales, books.day.sales);
    WriteMovement(statements, kOpenDay, kCredits, books.day.credits);
  }
  WriteDocument(statements, last.document, books.document);
  WritePaper(statements, last.printed, books.printed);
}

void WriteClosing(Statements& statements, const DailyClosing& closing) {
  Statement& put = statements("INSERT INTO cierres VALUES (?, ?, ?, ?, ?, ?)");
  put.Bind(closing.number).Bind(closing.moment);
  BindDay(put, closing.day);
  put.Run();
  WriteMovement(statements, closing.number, kSales, closing.day.sales);
  WriteMovement(statements, closing.number, kCredits, closing.day.credits);
}

void WriteReceipt(Statements& statements, const Receipt& receipt) {
  const std::string date = DateDigits(receipt.moment);
  const std::string shown = "20" + date.substr(0, 2) + "-" + date.substr(2, 2) + "-" +
                            date.substr(4, 2) + " " + PrintedTime(receipt.moment);
  statements("INSERT INTO comprobantes VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
      .Bind(receipt.ordinal)
      .Bind(ClassWords(receipt.receipt_class))
      .Bind(receipt.kind)
      .Bind(LetterText(receipt.code))
      .Bind(LetterText(receipt.letter))
      .Bind(receipt.number)
      .Bind(shown)
      .Bind(receipt.moment)
      .Bind(receipt.total)
      .Bind(receipt.iva)
      .BindBytes(receipt.customer_id)
      .Bind(receipt.cancelled ? 1 : 0)
      .Run();
}

}  // namespace impresora
