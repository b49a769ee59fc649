#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "base/expected.h"
#include "platform/files.h"
#include "platform/zip.h"
#include "sources/detect/classification.h"
#include "sources/documents/document_fault.h"

namespace korv {

/// The bytes of a document or of a part of it, read from the beginning to the end.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Fills up to all of `buffer` and returns the bytes read; 0 at the end.
  virtual Expected<size_t, DocumentFault> Read(std::span<char> buffer) = 0;
};

/// A file that was opened: its head and what follows.
class FileBytes final : public ByteSource {
 public:
  explicit FileBytes(OpenedText opened) : head_(std::move(opened.Head)), rest_(std::move(opened.File)) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override;

 private:
  std::string head_;
  size_t given_ = 0;  ///< Bytes of the head.
  std::unique_ptr<InputFile> rest_;
};

/// How much may come out of a packed file: a file of a few kilobytes can be made to unpack to any size.
class UnpackLimit {
 public:
  /// Fewer bytes are harmless, however well they were packed.
  static constexpr uint64_t kHarmlessBytes = uint64_t{64} << 20;
  static constexpr uint64_t kMostRatio = 200;

  /// `packed`: the bytes of the file. `most`: the bytes that may come out of it, whatever the answer.
  /// `confirm` is asked once where they become suspiciously many; without it such files are refused.
  UnpackLimit(uint64_t packed, uint64_t most, std::function<bool()> confirm = {})
      : packed_(packed), most_(most), confirm_(std::move(confirm)) {}

  /// So many more came out.
  std::optional<DocumentFault> Take(size_t bytes);

 private:
  uint64_t packed_;
  uint64_t most_;
  std::function<bool()> confirm_;
  uint64_t unpacked_ = 0;
  bool confirmed_ = false;
};

/// The limit for a file that was opened by `context`, in which a window asks whether to go on.
UnpackLimit LimitFor(const std::filesystem::path& path, uint64_t packed, uint64_t most,
                     const ReadContext& context);

/// A member of an archive. `limit` must outlive it.
class MemberBytes final : public ByteSource {
 public:
  MemberBytes(ZipMember member, UnpackLimit& limit) : member_(std::move(member)), limit_(limit) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override;

 private:
  ZipMember member_;
  UnpackLimit& limit_;
};

DocumentFault FaultOf(const ZipError& error);

/// All of a source that has at most `most` bytes; else TooLarge.
Expected<std::string, DocumentFault> ReadAll(ByteSource& source, size_t most);

}  // namespace korv
