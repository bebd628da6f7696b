#include "outbox/letter_box.hpp"

namespace puerta {

// What is forgotten need not be on the disk at once: after a cut of the power a letter would be sent
// again, which harms nobody, and the tills never wait for a disk that this thread keeps busy.
LetterBox::LetterBox(const std::string& path) : database_(path) {
  database_.Execute(
      "PRAGMA busy_timeout = 5000; PRAGMA trusted_schema = OFF; PRAGMA synchronous = NORMAL;");
}

std::vector<std::string> LetterBox::Printers() {
  Query find = database_.Use("SELECT impresora FROM secuencias");
  std::vector<std::string> printers;
  while (find.Step()) printers.push_back(find.Text());
  return printers;
}

std::optional<Letter> LetterBox::Oldest(std::string_view printer, std::int64_t behind) {
  Query find = database_.Use(
      "SELECT e.id, e.impresora, e.clase, e.momento, e.datos, e.secuencia, e.clave "
      "FROM salida AS s JOIN eventos AS e ON e.id = s.evento "
      "WHERE s.impresora = ? AND s.evento > ? ORDER BY s.evento LIMIT 1");
  find.Bind(printer).Bind(behind);
  if (!find.Step()) return std::nullopt;
  Letter letter;
  letter.id = find.Number();
  letter.printer = find.Text();
  letter.kind = find.Text();
  letter.moment = Moment{std::chrono::milliseconds{find.Number()}};
  letter.data = find.Text();
  letter.sequence = find.Number();
  letter.key = find.Text();
  return letter;
}

void LetterBox::Forget(const std::string& printer, std::int64_t id) {
  database_.Use("DELETE FROM salida WHERE impresora = ? AND evento = ?")
      .Bind(printer)
      .Bind(id)
      .Run();
}

std::int64_t LetterBox::Waiting() {
  return database_.Number("SELECT count(*) FROM salida");
}

}  // namespace puerta
