#include "platform/unpacked_file.h"

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <new>
#include <utility>
#include <vector>

namespace korv {

namespace {

constexpr size_t kBlock = size_t{64} << 10;

struct Free {
  void operator()(archive* handle) const { archive_read_free(handle); }
};

class Unpacked final : public InputFile {
 public:
  explicit Unpacked(std::unique_ptr<InputFile> packed)
      : packed_(std::move(packed)), block_(kBlock), handle_(archive_read_new()) {
    if (handle_ == nullptr) throw std::bad_alloc();
    archive_read_support_filter_gzip(handle_.get());
    archive_read_support_filter_bzip2(handle_.get());
    archive_read_support_filter_xz(handle_.get());
    archive_read_support_filter_zstd(handle_.get());
    archive_read_support_format_raw(handle_.get());
    archive_read_support_format_empty(handle_.get());
  }

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (!isOpen_) {
      isOpen_ = true;
      archive_entry* entry = nullptr;
      const bool opened =
          archive_read_open(handle_.get(), this, nullptr, &Unpacked::Supply, nullptr) == ARCHIVE_OK;
      const int found = opened ? archive_read_next_header(handle_.get(), &entry) : ARCHIVE_FATAL;
      if (found == ARCHIVE_EOF) return size_t{0};
      if (found != ARCHIVE_OK) return Fault();
      // What is packed in no way would be handed out as it is.
      if (archive_filter_count(handle_.get()) < 2) return FileError{FileFault::Other, "It is not packed."};
    }
    const la_ssize_t got = archive_read_data(handle_.get(), buffer.data(), buffer.size());
    if (got < 0) return Fault();
    return static_cast<size_t>(got);
  }
  uint64_t Size() const override { return 0; }
  int64_t Modified() const override { return packed_->Modified(); }

 private:
  static la_ssize_t Supply(archive* handle, void* user, const void** bytes) {
    Unpacked& file = *static_cast<Unpacked*>(user);
    const Expected<size_t, FileError> got = file.packed_->Read(file.block_);
    *bytes = file.block_.data();
    if (got) return static_cast<la_ssize_t>(*got);
    archive_set_error(handle, EIO, "%s", got.Error().Description.c_str());
    return -1;
  }
  FileError Fault() const {
    const char* const said = archive_error_string(handle_.get());
    return {FileFault::Other, said == nullptr ? "The packed data are damaged." : said};
  }

  std::unique_ptr<InputFile> packed_;
  std::vector<char> block_;
  std::unique_ptr<archive, Free> handle_;
  bool isOpen_ = false;
};

}  // namespace

std::unique_ptr<InputFile> UnpackedFile(std::unique_ptr<InputFile> packed) {
  return std::make_unique<Unpacked>(std::move(packed));
}

}  // namespace korv
