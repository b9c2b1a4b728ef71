#include "hosts/headless/disk_files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

namespace tabulon::platform {

namespace {

struct Refusal {
  int system;
  ErrorNumber number;
};

constexpr Refusal refusals[] = {
    {ENOENT, ErrorNumber::FileNotFound},  {ENAMETOOLONG, ErrorNumber::BadFileName},
    {EINVAL, ErrorNumber::BadFileName},   {EILSEQ, ErrorNumber::BadFileName},
    {ENOTDIR, ErrorNumber::PathNotFound}, {ELOOP, ErrorNumber::PathNotFound},
    {ENOSPC, ErrorNumber::DiskFull},      {EFBIG, ErrorNumber::DiskFull},
#ifdef EDQUOT
    {EDQUOT, ErrorNumber::DiskFull},
#endif
};

// Whatever else the system says, it does not let us at the file.
ErrorNumber number_of(int system) {
  for (const Refusal& refusal : refusals)
    if (refusal.system == system) return refusal.number;
  return ErrorNumber::PermissionDenied;
}

class DiskFile : public FileBytes {
 public:
  DiskFile(std::FILE* file, std::string_view name) : file_(file), name_(name) {}
  DiskFile(const DiskFile&) = delete;
  ~DiskFile() override {
    if (file_) std::fclose(file_);
  }

  Result<> append(std::string_view bytes) override {
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) return refused();
    return {};
  }

  Result<std::string> read(std::size_t most) override {
    std::string bytes(most, '\0');
    errno = 0;
    bytes.resize(std::fread(bytes.data(), 1, most, file_));
    if (std::ferror(file_)) TRY(refused());
    return bytes;
  }

  // A file system may notice only now that it has no room.
  Result<> close() override {
    if (!file_) return {};
    errno = 0;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) return refused();
    return {};
  }

 private:
  Result<> refused() const { return fail(number_of(errno), name_); }

  std::FILE* file_;
  std::string name_;
};

bool folder_is_missing(const std::filesystem::path& path) {
  std::error_code ignored;
  return path.has_parent_path() && !std::filesystem::is_directory(path.parent_path(), ignored);
}

Result<std::unique_ptr<FileBytes>> open(std::string_view name, const char* mode) {
  const std::filesystem::path path(name);
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored))
    return fail(ErrorNumber::PermissionDenied, std::string(name));
  errno = 0;
  if (std::FILE* const file = std::fopen(std::string(name).c_str(), mode))
    return std::make_unique<DiskFile>(file, name);
  const int refusal = errno;
  if (refusal == ENOENT && folder_is_missing(path)) return fail(ErrorNumber::PathNotFound, std::string(name));
  return fail(number_of(refusal), std::string(name));
}

}  // namespace

Result<std::unique_ptr<FileBytes>> DiskFiles::open_for_input(std::string_view name) {
  return open(name, "rb");
}
Result<std::unique_ptr<FileBytes>> DiskFiles::open_for_output(std::string_view name) {
  return open(name, "wb");
}

}  // namespace tabulon::platform
