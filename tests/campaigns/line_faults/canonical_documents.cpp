#include "campaigns/line_faults/canonical_documents.hpp"

#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>

#include "golden/words.hpp"

namespace kestra::line_faults {
namespace {

const std::map<std::string, impresora::Family> kFamilies{{"TQ", impresora::Family::kTicket},
                                                         {"TF", impresora::Family::kTicketInvoice},
                                                         {"FC", impresora::Family::kForm}};

std::vector<CanonicalDocument> ReadDocuments() {
  std::vector<CanonicalDocument> documents;
  std::ifstream file(KESTRA_CANONICAL_DOCUMENTS);
  bool begun = false;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    if (line.substr(0, 3) == "== ") {
      documents.push_back({.name = line.substr(3), .configuration = {}, .calls = {}});
      begun = true;
    } else if (!begun) {
      documents.back().calls.push_back(line);
    } else {
      for (const std::string_view word : golden::Words(line)) {
        const std::size_t equals = word.find('=');
        documents.back().configuration.emplace_back(word.substr(0, equals),
                                                    word.substr(equals + 1));
      }
      documents.back().family = kFamilies.at(documents.back().configuration.front().second);
      begun = false;
    }
  }
  if (documents.empty()) throw std::runtime_error("no documents in " KESTRA_CANONICAL_DOCUMENTS);
  return documents;
}

}  // namespace

std::span<const CanonicalDocument> CanonicalDocuments() {
  static const std::vector<CanonicalDocument> documents = ReadDocuments();
  return documents;
}

}  // namespace kestra::line_faults
