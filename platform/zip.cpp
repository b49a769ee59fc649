#include "platform/zip.h"

#include <zip.h>

#include <tuple>
#include <utility>

namespace korv {

namespace {

struct Free {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
  // Nothing was changed, so nothing is to be written back.
  void operator()(zip_t* archive) const { zip_discard(archive); }
  void operator()(zip_file_t* member) const { zip_fclose(member); }
};

// Gives the library a file of ours to read from.
class FileSource {
 public:
  explicit FileSource(std::unique_ptr<InputFile> file) : file_(std::move(file)) { zip_error_init(&error_); }
  ~FileSource() { zip_error_fini(&error_); }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  zip_source_t* Create(zip_error_t* error) { return zip_source_function_create(&Call, this, error); }

 private:
  static zip_int64_t Call(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
    return static_cast<FileSource*>(user)->Handle(data, length, command);
  }

  zip_int64_t Handle(void* data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
      case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                              ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE,
                                              ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS, -1);
      case ZIP_SOURCE_OPEN:
        return SeekTo(0);
      case ZIP_SOURCE_READ:
        return Read({static_cast<char*>(data), length});
      case ZIP_SOURCE_SEEK: {
        const zip_int64_t to =
            zip_source_seek_compute_offset(position_, file_->Size(), data, length, &error_);
        return to < 0 ? -1 : SeekTo(static_cast<uint64_t>(to));
      }
      case ZIP_SOURCE_TELL:
        return static_cast<zip_int64_t>(position_);
      case ZIP_SOURCE_STAT: {
        auto* facts = static_cast<zip_stat_t*>(data);
        zip_stat_init(facts);
        facts->size = file_->Size();
        facts->valid = ZIP_STAT_SIZE;
        return sizeof(zip_stat_t);
      }
      case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, length);
      case ZIP_SOURCE_CLOSE:
      case ZIP_SOURCE_FREE:
        return 0;
      default:
        zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
  }

  zip_int64_t SeekTo(uint64_t position) {
    if (file_->SeekTo(position)) {
      zip_error_set(&error_, ZIP_ER_SEEK, 0);
      return -1;
    }
    position_ = position;
    return 0;
  }

  zip_int64_t Read(std::span<char> buffer) {
    size_t got = 0;
    while (got < buffer.size()) {
      const Expected<size_t, FileError> piece = file_->Read(buffer.subspan(got));
      if (!piece) {
        zip_error_set(&error_, ZIP_ER_READ, 0);
        return -1;
      }
      if (*piece == 0) break;
      got += *piece;
    }
    position_ += got;
    return static_cast<zip_int64_t>(got);
  }

  std::unique_ptr<InputFile> file_;
  uint64_t position_ = 0;
  zip_error_t error_;
};

ZipFault FaultOf(int code) {
  switch (code) {
    case ZIP_ER_NOENT:
      return ZipFault::NoSuchMember;
    case ZIP_ER_CRC:
      return ZipFault::BadChecksum;
    case ZIP_ER_COMPNOTSUPP:
    case ZIP_ER_ENCRNOTSUPP:
    case ZIP_ER_NOPASSWD:
    case ZIP_ER_WRONGPASSWD:
      return ZipFault::Unsupported;
    case ZIP_ER_READ:
    case ZIP_ER_SEEK:
    case ZIP_ER_OPEN:
      return ZipFault::Unreadable;
    case ZIP_ER_NOZIP:
    case ZIP_ER_MULTIDISK:
      return ZipFault::NotAnArchive;
    default:
      return ZipFault::Damaged;
  }
}

ZipError ErrorOf(zip_error_t* error) {
  return {FaultOf(zip_error_code_zip(error)), zip_error_strerror(error)};
}

}  // namespace

struct ZipMember::State {
  std::unique_ptr<zip_file_t, Free> Member;
  uint64_t ClaimedSize = 0;
  uint64_t Unpacked = 0;
};

ZipMember::ZipMember(std::unique_ptr<State> state) : state_(std::move(state)) {}
ZipMember::~ZipMember() = default;
ZipMember::ZipMember(ZipMember&&) noexcept = default;

Expected<size_t, ZipError> ZipMember::Read(std::span<char> buffer) {
  const zip_int64_t got = zip_fread(state_->Member.get(), buffer.data(), buffer.size());
  if (got < 0) return ErrorOf(zip_file_get_error(state_->Member.get()));
  state_->Unpacked += static_cast<uint64_t>(got);
  // The library checks the sum of what it unpacks, not the size.
  if (got == 0 && !buffer.empty() && state_->Unpacked != state_->ClaimedSize)
    return ZipError{ZipFault::Damaged, "The size is not the one that the archive names"};
  return static_cast<size_t>(got);
}

// In the order in which they depend on each other; destroyed from the last to the first.
struct ZipArchive::State {
  explicit State(std::unique_ptr<InputFile> file) : Source(std::move(file)) {}

  FileSource Source;
  std::unique_ptr<zip_t, Free> Archive;
};

ZipArchive::ZipArchive(std::unique_ptr<State> state) : state_(std::move(state)) {}
ZipArchive::~ZipArchive() = default;
ZipArchive::ZipArchive(ZipArchive&&) noexcept = default;

Expected<ZipMember, ZipError> ZipArchive::Open(const std::string& name) {
  zip_t* archive = state_->Archive.get();
  const zip_int64_t index = zip_name_locate(archive, name.c_str(), ZIP_FL_ENC_RAW);
  if (index < 0) return ErrorOf(zip_get_error(archive));
  const auto at = static_cast<zip_uint64_t>(index);
  zip_stat_t facts;
  if (zip_stat_index(archive, at, 0, &facts) != 0) return ErrorOf(zip_get_error(archive));
  auto member = std::make_unique<ZipMember::State>();
  member->ClaimedSize = facts.size;
  member->Member.reset(zip_fopen_index(archive, at, 0));
  if (!member->Member) return ErrorOf(zip_get_error(archive));
  return ZipMember(std::move(member));
}

Expected<ZipArchive, ZipError> OpenZipArchive(std::unique_ptr<InputFile> file) {
  auto state = std::make_unique<ZipArchive::State>(std::move(file));
  zip_error_t error;
  zip_error_init(&error);
  const std::unique_ptr<zip_error_t, void (*)(zip_error_t*)> finish(&error, &zip_error_fini);

  std::unique_ptr<zip_source_t, Free> source(state->Source.Create(&error));
  if (!source) return ErrorOf(&error);
  state->Archive.reset(zip_open_from_source(source.get(), ZIP_RDONLY, &error));
  if (!state->Archive) {
    ZipError reason = ErrorOf(&error);
    if (reason.Fault == ZipFault::Damaged) reason.Fault = ZipFault::NotAnArchive;
    return reason;
  }
  std::ignore = source.release();  // The archive owns it now.
  return ZipArchive(std::move(state));
}

}  // namespace korv
