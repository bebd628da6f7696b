#include "program/sinks.hpp"

#include <cstdio>
#include <filesystem>
#include <string_view>

#include "pictures/paper_folder.hpp"
#include "program/output_file.hpp"
#include "text/path.hpp"
#include "trace/exchange_json.hpp"
#include "trace/exchange_text.hpp"
#include "trace/recording.hpp"

namespace impresora {
namespace {

// The paper as one long text, on the disk after each document.
class PaperFile : public Sink {
 public:
  PaperFile(const std::string& path, const Printer& printer)
      : file_(path, false), printer_(printer) {}

  // The file begins anew with the program, and the document with it.
  void Resumed(const std::vector<PaperLine>& paper) override {
    for (const PaperLine& line : paper) Printed(line);
  }
  void Printed(const PaperLine& line) override {
    file_.Line(AsText(line, printer_.GetSettings().PaperColumns()));
    fresh_ = true;
  }
  void Changed() override {
    if (!fresh_ || printer_.GetStage() != Stage::kIdle) return;
    file_.Flush();
    fresh_ = false;
  }

 private:
  OutputFile file_;
  const Printer& printer_;
  bool fresh_ = false;
};

// Each document's paper as files of a folder.
class PaperPictures : public Sink {
 public:
  PaperPictures(const Options& options, const Printer& printer)
      : folder_(PathOf(options.paper), printer.GetSettings().PaperColumns(), options.font,
                TellPerson) {}

  void Resumed(const std::vector<PaperLine>& paper) override { folder_.Resumed(paper); }
  void Printed(const PaperLine& line) override { folder_.Printed(line); }
  void Closed(const Receipt& receipt) override { folder_.Closed(receipt); }
  void Finish() override { folder_.Finish(); }

 private:
  PaperFolder folder_;
};

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// One line for each exchange, for people or for programs.
class Trace : public Sink {
 public:
  explicit Trace(const std::string& path) : file_(path, true), json_(EndsWith(path, ".jsonl")) {}

  void Exchanged(const Exchange& exchange) override {
    file_.Line(json_ ? TraceJson(exchange) : Describe(exchange));
  }

 private:
  OutputFile file_;
  bool json_;
};

class RecordingFile : public Sink {
 public:
  RecordingFile(const std::string& path, const Settings& settings)
      : file_(path, true),
        recorder_(settings, [this](std::string_view line) { file_.Line(line); }) {}

  void Exchanged(const Exchange& exchange) override { recorder_.Exchanged(exchange); }

 private:
  OutputFile file_;
  Recorder recorder_;
};

bool IsFolder(const std::string& path) {
  std::error_code ignored;
  return path.back() == '/' || path.back() == '\\' ||
         std::filesystem::is_directory(PathOf(path), ignored);
}

}  // namespace

void TellPerson(const std::string& words) {
  std::fprintf(stderr, "impresora-virtual: %s\n", words.c_str());
}

Sinks MakeSinks(const Options& options, const Printer& printer) {
  Sinks sinks;
  if (IsFolder(options.paper)) {
    sinks.push_back(std::make_unique<PaperPictures>(options, printer));
  } else {
    sinks.push_back(std::make_unique<PaperFile>(options.paper, printer));
  }
  if (!options.trace.empty()) sinks.push_back(std::make_unique<Trace>(options.trace));
  if (!options.recording.empty()) {
    sinks.push_back(std::make_unique<RecordingFile>(options.recording, printer.GetSettings()));
  }
  return sinks;
}

}  // namespace impresora
