#include "memory/memory_file.hpp"

namespace impresora {
namespace {

char Letter(const std::string& text) {
  return text.empty() ? '\0' : text.front();
}

unsigned Count(Statement& row) {
  return static_cast<unsigned>(row.Number());
}

int Small(Statement& row) {
  return static_cast<int>(row.Number());
}

[[noreturn]] void Damaged(const std::string& what) {
  throw MemoryFailure("el archivo está dañado: " + what);
}

// Every row of a query, and the statement ready for the next time.
template <class Take>
void ForEach(Statement& query, Take take) {
  while (query.Step()) take(query);
  query.Run();
}

Movement& MovementOf(Day& day, const std::string& operation) {
  if (operation == kSales) return day.sales;
  if (operation == kCredits) return day.credits;
  Damaged("operación " + operation);
}

// The rows of movements and rates of every closing, handed to `day_of` by its number.
template <class DayOf>
void ReadMovements(Statements& sql, std::uint32_t from, std::uint32_t to, DayOf day_of) {
  ForEach(sql("SELECT * FROM movimientos WHERE cierre BETWEEN ? AND ?").Bind(from).Bind(to),
          [&](Statement& row) {
            Day& day = day_of(row.Number());
            Movement& movement = MovementOf(day, row.Text());
            movement.documents = Count(row);
            movement.total = row.Number();
            movement.internal = row.Number();
            movement.perceptions = row.Number();
          });
  ForEach(sql("SELECT * FROM tasas WHERE cierre BETWEEN ? AND ? ORDER BY cierre, operacion, tasa")
              .Bind(from)
              .Bind(to),
          [&](Statement& row) {
            Day& day = day_of(row.Number());
            Movement& movement = MovementOf(day, row.Text());
            const std::int64_t rate = row.Number();
            const std::int64_t net = row.Number();
            movement.rates.push_back({rate, net, row.Number()});
          });
}

void ReadDay(Statement& row, Day& day) {
  const bool opened = !row.IsNothing();
  const std::int64_t moment = row.Number();
  if (opened) day.opened = moment;
  day.unpriced = Count(row);
  day.cancelled = Count(row);
  day.non_fiscal = Count(row);
}

void ReadState(Statements& sql, Books& books) {
  ForEach(sql("SELECT * FROM estado"), [&](Statement& row) {
    row.Number();
    books.clock_offset = row.Number();
    books.closings_left = Small(row);
    books.finished = Count(row);
    books.non_fiscal_open = row.Number() != 0;
    ReadDay(row, books.day);
  });
}

void ReadNumbering(Statements& sql, Numbering& numbering) {
  ForEach(sql("SELECT * FROM numeracion"), [&](Statement& row) {
    const auto series = static_cast<Series>(row.Number());
    const char letter = Letter(row.Text());
    numbering.Set(series, letter, Count(row));
  });
}

void ReadHeader(Statements& sql, Books& books) {
  ForEach(sql("SELECT * FROM encabezados"), [&](Statement& row) {
    const std::int64_t line = row.Number();
    if (line < 1 || line > kHeaderLines + kTrailerLines) Damaged("encabezado");
    const auto index = static_cast<std::size_t>(line - 1);
    (index < kHeaderLines ? books.header.at(index) : books.trailer.at(index - kHeaderLines)) =
        row.Text();
  });
}

DocumentContent ReadHead(Statement& row) {
  DocumentContent content;
  content.letter = Letter(row.Text());
  content.number = Count(row);
  content.largest_total = row.Number();
  content.customer.name = row.Text();
  content.customer.name_more = row.Text();
  content.customer.id_kind = row.Text();
  content.customer.id_number = row.Text();
  content.customer.iva = Letter(row.Text());
  content.internal = row.Number();
  content.perceptions = row.Number();
  content.units = row.Number();
  content.lines = Small(row);
  content.paying = row.Number() != 0;
  content.between_sheets = row.Number() != 0;
  content.lines_on_sheet = Small(row);
  content.copies = Small(row);
  return content;
}

void ReadContent(Statements& sql, DocumentContent& content) {
  ForEach(sql("SELECT texto FROM documento_domicilio ORDER BY n"),
          [&](Statement& row) { content.customer.address.push_back(row.Text()); });
  ForEach(sql("SELECT tasa, importe FROM documento_tasas ORDER BY n"), [&](Statement& row) {
    const std::int64_t rate = row.Number();
    content.bases.push_back({rate, row.Number()});
  });
  ForEach(sql("SELECT descripcion, precio, tasa, internos_unidad, cantidad, gravado, internos "
              "FROM documento_items ORDER BY n"),
          [&](Statement& row) {
            SoldItem item{row.Text(), 0, 0, 0, 0, 0, 0};
            item.price = row.Number();
            item.rate = row.Number();
            item.internal_each = row.Number();
            item.quantity = row.Number();
            item.taxed = row.Number();
            item.internal = row.Number();
            content.sold.push_back(std::move(item));
          });
  ForEach(sql("SELECT descripcion, importe FROM documento_pagos ORDER BY n"), [&](Statement& row) {
    Payment payment{row.Text(), 0};
    payment.amount = row.Number();
    content.payments.push_back(std::move(payment));
  });
}

void ReadPaper(Statements& sql, std::vector<PaperLine>& printed) {
  ForEach(sql("SELECT texto, estilo FROM documento_papel ORDER BY n"), [&](Statement& row) {
    PaperLine line{row.Text(), PaperLine::Style::kPlain};
    line.style = static_cast<PaperLine::Style>(row.Number());
    printed.push_back(std::move(line));
  });
}

const DocumentKind& KindOf(const std::string& code, Family family) {
  if (code.empty()) return kTicketKind;
  const DocumentKind* const kind = FindKind(code.front(), family);
  if (kind == nullptr) Damaged("comprobante abierto de tipo " + code);
  return *kind;
}

void ReadDocument(Statements& sql, Family family, std::optional<Document>& document) {
  ForEach(sql("SELECT codigo, letra, numero, mayor_total, nombre, nombre_2, clase_id, numero_id, "
              "iva, internos, percepciones, unidades, renglones, pagando, entre_hojas, "
              "renglones_hoja, copias FROM documento"),
          [&](Statement& row) {
            const DocumentKind& kind = KindOf(row.Text(), family);
            document.emplace(kind, ReadHead(row));
          });
  if (document) ReadContent(sql, *document);
}

}  // namespace

Books ReadBooks(Statements& statements, Family family) {
  Books books;
  ReadState(statements, books);
  ReadNumbering(statements, books.numbering);
  ReadHeader(statements, books);
  ReadMovements(statements, kOpenDay, kOpenDay, [&](std::int64_t) -> Day& { return books.day; });
  ReadDocument(statements, family, books.document);
  ReadPaper(statements, books.printed);
  return books;
}

std::vector<DailyClosing> ReadClosings(Statements& statements) {
  std::vector<DailyClosing> closings;
  ForEach(statements("SELECT * FROM cierres ORDER BY numero"), [&](Statement& row) {
    DailyClosing closing{Count(row), 0, {}};
    closing.moment = row.Number();
    ReadDay(row, closing.day);
    if (closing.number != closings.size() + 1) Damaged("falta un cierre");
    closings.push_back(std::move(closing));
  });
  const auto last = static_cast<std::uint32_t>(closings.size());
  ReadMovements(statements, 1, last, [&](std::int64_t closing) -> Day& {
    return closings.at(static_cast<std::size_t>(closing - 1)).day;
  });
  return closings;
}

}  // namespace impresora
