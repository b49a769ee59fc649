#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "base/expected.h"
#include "platform/files.h"

namespace korv {

/// Why an archive or a member of it cannot be read.
enum class ZipFault {
  NotAnArchive,  ///< No archive, or its directory is damaged or cut off.
  NoSuchMember,
  Unsupported,  ///< Encrypted, or packed by a method that is not known.
  BadChecksum,
  Damaged,     ///< The packed data, or a size that does not agree with them.
  Unreadable,  ///< The file itself could not be read.
};

struct ZipError {
  ZipFault Fault = ZipFault::Damaged;
  std::string Description;
};

/// One member of an archive, unpacked while it is read. Nothing that the archive says of the member's size
/// is believed. The archive must outlive it.
class ZipMember {
 public:
  ~ZipMember();
  ZipMember(ZipMember&&) noexcept;

  /// Fills up to all of `buffer` and returns the bytes unpacked; 0 at the end, which also means that
  /// checksum and size were right.
  Expected<size_t, ZipError> Read(std::span<char> buffer);

 private:
  friend class ZipArchive;
  struct State;
  explicit ZipMember(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// An archive whose members are read one at a time.
class ZipArchive {
 public:
  ~ZipArchive();
  ZipArchive(ZipArchive&&) noexcept;

  /// The member of exactly this name (the first, where there are several).
  Expected<ZipMember, ZipError> Open(const std::string& name);

 private:
  friend Expected<ZipArchive, ZipError> OpenZipArchive(std::unique_ptr<InputFile>);
  struct State;
  explicit ZipArchive(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// Takes the file over, which must be able to seek.
Expected<ZipArchive, ZipError> OpenZipArchive(std::unique_ptr<InputFile> file);

}  // namespace korv
