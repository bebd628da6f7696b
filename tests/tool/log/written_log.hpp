#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "log/report.hpp"
#include "wire/packet.hpp"

namespace kestra::tool {

// "K|0080|0600": fields with the line's own signs around them.
inline std::string Framed(char sequence, std::string body) {
  std::replace(body.begin(), body.end(), '|', '\x1C');
  return std::string("\x02") + sequence + body + "\x03";
}

// A log as a till writes it.
class WrittenLog {
 public:
  WrittenLog& At(std::string_view stamp) {
    stamp_ = stamp;
    return *this;
  }
  WrittenLog& Line(std::string_view text) {
    text_.append("[").append(stamp_).append("] - ").append(text).append("\r\n");
    return *this;
  }
  WrittenLog& Raw(std::string_view bytes) {
    text_ += bytes;
    return *this;
  }
  WrittenLog& Call(std::string_view name) { return Line("Comando : " + std::string(name)); }
  WrittenLog& Sent(char sequence, const std::string& body) {
    return Line("Output : " + Framed(sequence, body));
  }
  WrittenLog& Heard(std::string_view bytes) { return Line("Respuesta : " + std::string(bytes)); }
  WrittenLog& Answered(char sequence, const std::string& body) {
    const std::string frame = Framed(sequence, body);
    return Heard(frame + impresora::Hex4(impresora::Checksum(frame)));
  }
  WrittenLog& Exchange(std::string_view call, const std::string& sent,
                       const std::string& answered) {
    return Call(call).Sent('*', sent).Answered('*', answered);
  }

  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string stamp_ = "16/11/2026-02:25:15";
  std::string text_;
};

// Keeps what it is shown.
class KeptSheet : public Sheet {
 public:
  void Add(const View& view) override { views.push_back(view); }
  void End(const Totals& counted) override { totals = counted; }

  std::vector<View> views;
  Totals totals;
};

inline KeptSheet ReadLog(std::string_view text, const Filter& filter = {},
                         std::size_t piece = 1'000'000) {
  KeptSheet sheet;
  LogReport report({}, filter, Viewer({}, Mask(false)), sheet);
  for (; !text.empty(); text.remove_prefix(std::min(piece, text.size())))
    report.Feed(text.substr(0, piece));
  report.End();
  return sheet;
}

// "EP_CortaPapel K hecho 1 s": a line for each entry.
inline std::vector<std::string> Told(const std::vector<View>& views) {
  std::vector<std::string> lines;
  for (const View& view : views) {
    std::string line = view.operation + (view.operation.empty() ? "" : " ");
    if (view.attempt > 1) line += std::to_string(view.attempt) + " ";
    if (!view.mark.empty()) line += view.mark + " ";
    line += view.outcome_words;
    if (view.seconds) line += " " + std::to_string(*view.seconds) + " s";
    for (const std::string& note : view.notes) line += " | " + note;
    lines.push_back(line);
  }
  return lines;
}

}  // namespace kestra::tool
