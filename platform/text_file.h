// Sequential text files: read or written line by line, opened for one purpose.
//
//   Result<TextFile> file = TextFile::open(host.files(), "oefening.tbl", TextFile::Mode::Output);
//   if (file) return file->write_line("Tabloria op Internet");
//
// A write to a file opened for input, and a read from one opened for output, is error 54. Lines end with
// CR LF. Texts are UTF-8 here and Latin text of 8 bits in the file; a character outside it is written "?",
// and so are CR, LF and NUL, so that a text is one line whatever it holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "platform/run_time_error.h"

namespace tabulon::platform {

// The bytes of one open file; the host's side of a text file.
class FileBytes {
 public:
  virtual ~FileBytes() = default;
  virtual Result<> append(std::string_view bytes) = 0;
  // Up to `most` further bytes; none at the end.
  virtual Result<std::string> read(std::size_t most) = 0;
  // Ends a write; only then is everything written.
  virtual Result<> close() = 0;
};

// How many files of a disk are open at a time, by the numbers that the control has for them.
inline constexpr std::size_t file_numbers = 511;

// Where a host keeps files. Names are not empty and hold no "*", "?" or NUL. Refusals are errors 52, 53, 61,
// 70 and 76.
class FileStore {
 public:
  virtual ~FileStore() = default;
  virtual Result<std::unique_ptr<FileBytes>> open_for_input(std::string_view name) = 0;
  // Creates the file, or empties it.
  virtual Result<std::unique_ptr<FileBytes>> open_for_output(std::string_view name) = 0;
  // A store without a disk has no numbers to run out of.
  virtual std::size_t most_open() const { return std::numeric_limits<std::size_t>::max(); }
};

class TextFile {
 public:
  enum class Mode : std::uint8_t { Input, Output };

  static Result<TextFile> open(FileStore& store, std::string_view name, Mode mode);

  Result<> write_line(std::string_view text);
  // The next line without its line end. Error 62 when there is none.
  Result<std::string> read_line();
  Result<> close();

 private:
  TextFile(std::unique_ptr<FileBytes> bytes, Mode mode) : bytes_(std::move(bytes)), mode_(mode) {}

  std::unique_ptr<FileBytes> bytes_;
  std::string ahead_;  // read and not yet asked for
  Mode mode_;
};

}  // namespace tabulon::platform
