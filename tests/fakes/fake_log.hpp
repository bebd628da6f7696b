#pragma once

#include <string_view>

#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/files.hpp"

namespace kestra {

class FakeLog : public LogFile {
 public:
  FakeLog(Journal& journal, Trouble& trouble) : journal_(journal), trouble_(trouble) {}

  void Append(std::string_view file, std::string_view bytes) override;

  void SetReadOnly(bool read_only) { read_only_ = read_only; }

 private:
  Journal& journal_;
  Trouble& trouble_;
  bool read_only_ = false;
};

}  // namespace kestra
