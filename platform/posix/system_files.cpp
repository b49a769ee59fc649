#include <algorithm>

#include "platform/files.h"
#include "platform/posix/system_calls.h"
#include "platform/posix/temporary_names.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

class SystemFiles final : public FileSystem {
 public:
  bool FileExists(const fs::path& path) const override {
    std::error_code code;
    const fs::file_status status = fs::status(path, code);
    return fs::exists(status) && !fs::is_directory(status);
  }

  bool FolderExists(const fs::path& path) const override {
    std::error_code code;
    return fs::is_directory(path, code);
  }

  Expected<uint64_t, FileError> FileSize(const fs::path& path) const override {
    std::error_code code;
    const uintmax_t size = fs::file_size(path, code);
    if (code) return FileErrorOf(code);
    return static_cast<uint64_t>(size);
  }

  bool SameFile(const fs::path& a, const fs::path& b) const override {
    std::error_code code;
    return fs::equivalent(a, b, code) && !code;
  }

  fs::path AbsolutePath(const fs::path& path) const override {
    std::error_code code;
    fs::path absolute = fs::absolute(path, code);
    return WithoutEndSeparator((code ? path : absolute).lexically_normal());
  }

  fs::path CanonicalPath(const fs::path& path) const override {
    std::error_code code;
    const fs::path canonical = fs::weakly_canonical(AbsolutePath(path), code);
    return code ? AbsolutePath(path) : WithoutEndSeparator(canonical);
  }

  Expected<std::unique_ptr<InputFile>, FileError> OpenForReading(const fs::path& path) override {
    return SystemOpenForReading(path);
  }

  Expected<std::unique_ptr<OutputFile>, FileError> OpenForWriting(const fs::path& path) override {
    if (path.empty()) return FileErrorOf(std::make_error_code(std::errc::no_such_file_or_directory));
    return SystemOpenForWriting(AbsolutePath(path), swept_);
  }

  Expected<FolderListing, FileError> ListFolder(const fs::path& path) override {
    std::error_code code;
    FolderListing listing;
    fs::directory_iterator entry(path, code);
    if (code) return FileErrorOf(code);
    while (entry != fs::directory_iterator()) {
      Sort(*entry, listing);
      entry.increment(code);
      if (code) return FileErrorOf(code);
    }
    return listing;
  }

  std::optional<FileError> CreateFolder(const fs::path& path) override {
    std::error_code code;
    fs::create_directory(path, code);
    if (code) return FileErrorOf(code);
    if (IsTemporary(path.parent_path())) NoteTemporary(path);
    return std::nullopt;
  }

  std::optional<FileError> Remove(const fs::path& path) override {
    std::error_code code;
    if (!fs::remove(path, code) && !code) code = std::make_error_code(std::errc::no_such_file_or_directory);
    if (code) return FileErrorOf(code);
    ForgetTemporary(path);
    return std::nullopt;
  }

  Expected<fs::path, FileError> CreatePrivateTemporaryFolder() override {
    return SystemPrivateTemporaryFolder(swept_);
  }

  Expected<std::unique_ptr<InputFile>, FileError> OpenOutputOf(const std::string& program,
                                                               const std::vector<fs::path>& arguments,
                                                               Yielder& yielder) override {
    return SystemOpenOutputOf(program, arguments, yielder);
  }

 private:
  // "a/b/" and "a/b" are one path; the root keeps its separator.
  static fs::path WithoutEndSeparator(const fs::path& path) {
    return path.has_relative_path() && !path.has_filename() ? path.parent_path() : path;
  }

  // Asks the disk about links only: for everything else the listing itself tells the type.
  static void Sort(const fs::directory_entry& entry, FolderListing& listing) {
    std::error_code code;
    if (entry.is_symlink(code)) {
      const fs::file_status target = entry.status(code);
      if (fs::is_regular_file(target) || !fs::exists(target))
        listing.Files.push_back(entry.path().filename());
    } else if (entry.is_directory(code)) {
      listing.Subfolders.push_back(entry.path().filename());
    } else if (entry.is_regular_file(code)) {
      listing.Files.push_back(entry.path().filename());
    }
  }

  SweptFolders swept_;
};

FileFault FaultOf(const std::error_code& code) {
  struct Row {
    std::errc Condition;
    FileFault Fault;
  };
  static constexpr Row kRows[] = {
      {std::errc::no_such_file_or_directory, FileFault::NotFound},
      {std::errc::permission_denied, FileFault::PermissionDenied},
      {std::errc::operation_not_permitted, FileFault::PermissionDenied},
      {std::errc::read_only_file_system, FileFault::PermissionDenied},
      {std::errc::text_file_busy, FileFault::PermissionDenied},
      {std::errc::is_a_directory, FileFault::IsFolder},
      {std::errc::not_a_directory, FileFault::NotAFolder},
      {std::errc::no_space_on_device, FileFault::NoSpace},
      {std::errc::file_too_large, FileFault::NoSpace},
  };
  const auto row = std::ranges::find_if(kRows, [&](const Row& r) { return code == r.Condition; });
  return row == std::end(kRows) ? FileFault::Other : row->Fault;
}

}  // namespace

std::unique_ptr<FileSystem> MakeSystemFiles() {
  return std::make_unique<SystemFiles>();
}

std::string PathForLibraries(const fs::path& path) {
  return path.native();
}

FileError FileErrorOf(const std::error_code& code) {
  return {FaultOf(code), code.message()};
}

}  // namespace korv
