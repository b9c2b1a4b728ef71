#include "hosts/activex/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "hosts/activex/file_names.h"
#include "hosts/activex/text.h"

namespace tabulon::activex {

using platform::FileBytes;

namespace {

struct Refusal {
  DWORD system;
  ErrorNumber number;
};

constexpr Refusal refusals[] = {
    {ERROR_FILE_NOT_FOUND, ErrorNumber::FileNotFound}, {ERROR_INVALID_NAME, ErrorNumber::BadFileName},
    {ERROR_BAD_PATHNAME, ErrorNumber::BadFileName},    {ERROR_FILENAME_EXCED_RANGE, ErrorNumber::BadFileName},
    {ERROR_PATH_NOT_FOUND, ErrorNumber::PathNotFound}, {ERROR_DIRECTORY, ErrorNumber::PathNotFound},
    {ERROR_INVALID_DRIVE, ErrorNumber::PathNotFound},  {ERROR_BAD_NETPATH, ErrorNumber::PathNotFound},
    {ERROR_BAD_NET_NAME, ErrorNumber::PathNotFound},   {ERROR_DISK_FULL, ErrorNumber::DiskFull},
    {ERROR_HANDLE_DISK_FULL, ErrorNumber::DiskFull},   {ERROR_FILE_TOO_LARGE, ErrorNumber::DiskFull},
};

// Any other error means that the system denies access.
ErrorNumber number_of(DWORD system) {
  for (const Refusal& refusal : refusals)
    if (refusal.system == system) return refusal.number;
  return ErrorNumber::PermissionDenied;
}

constexpr std::size_t room = 65536;  // a tableau has many short lines, and every write is a system call

class WindowsFile : public FileBytes {
 public:
  WindowsFile(HANDLE file, std::string_view name) : file_(file), name_(name) {}
  WindowsFile(const WindowsFile&) = delete;
  WindowsFile& operator=(const WindowsFile&) = delete;
  ~WindowsFile() override { static_cast<void>(close()); }

  Result<> append(std::string_view bytes) override {
    waiting_ += bytes;
    return waiting_.size() < room ? Result<>() : write();
  }

  Result<std::string> read(std::size_t most) override {
    std::string bytes(most, '\0');
    DWORD count = 0;
    if (!ReadFile(file_, bytes.data(), static_cast<DWORD>(most), &count, nullptr)) TRY(refused());
    bytes.resize(count);
    return bytes;
  }

  Result<> close() override {
    if (file_ == INVALID_HANDLE_VALUE) return {};
    Result<> written = write();
    if (!CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE)) && written) return refused();
    return written;
  }

 private:
  // A write that failed is not retried: that could leave a gap in the file.
  Result<> write() {
    const std::string bytes = std::exchange(waiting_, {});
    DWORD count = 0;
    if (bytes.empty()) return {};
    if (!WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) return refused();
    return count == bytes.size() ? Result<>() : fail(ErrorNumber::DiskFull, name_);
  }
  Result<> refused() const { return fail(number_of(GetLastError()), name_); }

  HANDLE file_;
  std::string name_;
  std::string waiting_;
};

// Whether a component of the path is longer than any file system allows. The system itself might report that
// it does not exist.
bool is_too_long(std::wstring_view name) {
  constexpr std::size_t longest = 255;
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::wstring_view::npos; begin = end + 1) {
    end = name.find_first_of(L"/\\", begin);
    if (name.substr(begin, end - begin).size() > longest) return true;
  }
  return false;
}

bool is_folder(const std::wstring& name) {
  const DWORD attributes = GetFileAttributesW(name.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Result<std::unique_ptr<FileBytes>> open(std::string_view name, DWORD access, DWORD creation) {
  const std::wstring path = wide(name);
  if (is_too_long(path) || is_no_file(path)) return fail(ErrorNumber::BadFileName, std::string(name));
  if (is_folder(path)) return fail(ErrorNumber::PermissionDenied, std::string(name));
  const HANDLE file = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, creation,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return fail(number_of(GetLastError()), std::string(name));
  return std::make_unique<WindowsFile>(file, name);
}

}  // namespace

Result<std::unique_ptr<FileBytes>> WindowsFiles::open_for_input(std::string_view name) {
  return open(name, GENERIC_READ, OPEN_EXISTING);
}
Result<std::unique_ptr<FileBytes>> WindowsFiles::open_for_output(std::string_view name) {
  return open(name, GENERIC_WRITE, CREATE_ALWAYS);
}

}  // namespace tabulon::activex
