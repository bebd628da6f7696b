#pragma once

#include <windows.h>

#include <ostream>
#include <streambuf>
#include <string>

namespace kestra::tool {

// A stream of the program at a console, for as long as this lives. The system's own way takes UTF-8 apart byte by byte.
class ConsoleOutput : public std::streambuf {
 public:
  // Does nothing to a stream that goes elsewhere: which is one of STD_OUTPUT_HANDLE and its like.
  ConsoleOutput(std::ostream& stream, DWORD which);
  ConsoleOutput(const ConsoleOutput&) = delete;
  ConsoleOutput& operator=(const ConsoleOutput&) = delete;
  ~ConsoleOutput() override;

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int_type overflow(int_type byte) override;
  int sync() override;

 private:
  void Show(std::size_t count);

  std::ostream& stream_;
  HANDLE console_;
  std::streambuf* before_ = nullptr;
  std::string waiting_;
};

}  // namespace kestra::tool
