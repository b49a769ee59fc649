#pragma once

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace korv {

/// A disk in memory. Paths are absolute, "/"-separated, and case matters.
///
///   FakeFiles files;
///   files.Add("/in/a.txt", "some words");
///   files.FailCall(3, FileFault::Other);   // the third call from here on that can fail does
///   files.Refuse("/in/b.txt", FileFault::PermissionDenied);
class FakeFiles final : public FileSystem {
 public:
  FakeFiles() { folders_.insert("/"); }

  void Add(const std::filesystem::path& path, std::string content) {
    AddFolder(path.parent_path());
    files_[path] = std::make_shared<std::string>(std::move(content));
    modified_[path] = ++changes_;
  }
  /// Other bytes in a file that looks as old as before.
  void ChangeUnnoticed(const std::filesystem::path& path, std::string content) {
    files_[path] = std::make_shared<std::string>(std::move(content));
  }
  /// Cuts a file off, for those too who have it open.
  void Shorten(const std::filesystem::path& path, size_t size) { files_.at(path)->resize(size); }
  void AddFolder(const std::filesystem::path& path) {
    for (std::filesystem::path p = path; folders_.insert(p).second; p = p.parent_path()) {
    }
  }
  /// A second name for a file that exists.
  void AddAlias(const std::filesystem::path& alias, const std::filesystem::path& path) {
    AddFolder(alias.parent_path());
    files_[alias] = files_.at(path);
  }
  /// A folder under another name: a link to `target`.
  void AddFolderLink(const std::filesystem::path& link, const std::filesystem::path& target) {
    links_[link] = target;
  }
  void Erase(const std::filesystem::path& path) {
    std::erase_if(files_, [&](const auto& file) { return IsIn(file.first, path); });
    std::erase_if(folders_, [&](const auto& folder) { return IsIn(folder, path); });
  }

  /// Every call about this path fails.
  void Refuse(const std::filesystem::path& path, FileFault fault) { refused_[path] = fault; }
  /// Of the calls that can fail, the `number`th from here on does, once. 0 for none.
  void FailCall(int number, FileFault fault = FileFault::Other) {
    failAt_ = number;
    failWith_ = fault;
    calls_ = 0;
  }
  int Calls() const { return calls_; }
  bool FailureHappened() const { return failAt_ > 0 && calls_ >= failAt_; }

  /// What a program prints, by its name and arguments; without it there are no programs.
  std::function<Expected<std::unique_ptr<InputFile>, FileError>(const std::string&,
                                                                const std::vector<std::filesystem::path>&)>
      RunProgram;
  Expected<std::unique_ptr<InputFile>, FileError> OpenOutputOf(
      const std::string& program, const std::vector<std::filesystem::path>& arguments,
      Yielder& yielder) override {
    return RunProgram ? RunProgram(program, arguments)
                      : FileSystem::OpenOutputOf(program, arguments, yielder);
  }

  /// No call of Read() gives more than this.
  void ReadInPiecesOf(size_t bytes) { piece_ = bytes; }
  /// Called before a file is opened for reading, so that a test can change it between two readings.
  std::function<void(const std::filesystem::path&)> BeforeOpening;
  std::function<void(const std::filesystem::path&)> AfterOpening;  ///< And after that.
  /// Called before every listing of a folder, so that a test can change the disk during a walk.
  std::function<void(const std::filesystem::path&)> BeforeListing;

  std::optional<std::string> Content(const std::filesystem::path& path) const {
    const auto file = files_.find(path);
    return file == files_.end() ? std::nullopt : std::optional(*file->second);
  }
  /// How many times OpenForReading() was called.
  int Openings() const {
    const std::scoped_lock lock(*mutex_);
    return openings_;
  }
  /// Whether a temporary folder or anything in one is left.
  bool TemporaryIsClean() const {
    const auto inTemporary = [](const std::filesystem::path& path) { return IsIn(path, "/tmp"); };
    return std::ranges::none_of(files_, inTemporary, [](const auto& file) { return file.first; }) &&
           std::ranges::none_of(folders_,
                                [&](const auto& path) { return path != "/tmp" && inTemporary(path); });
  }

  bool FileExists(const std::filesystem::path& path) const override {
    const std::scoped_lock lock(*mutex_);
    return files_.contains(path);
  }
  bool FolderExists(const std::filesystem::path& path) const override {
    const std::scoped_lock lock(*mutex_);
    return folders_.contains(path);
  }

  Expected<uint64_t, FileError> FileSize(const std::filesystem::path& path) const override {
    const std::scoped_lock lock(*mutex_);
    if (auto fault = Fault(path)) return *fault;
    const auto file = files_.find(path);
    if (file == files_.end()) return Error(FileFault::NotFound);
    return static_cast<uint64_t>(file->second->size());
  }

  bool SameFile(const std::filesystem::path& a, const std::filesystem::path& b) const override {
    const std::scoped_lock lock(*mutex_);
    const auto first = files_.find(a);
    const auto second = files_.find(b);
    return first != files_.end() && second != files_.end() && first->second == second->second;
  }

  std::filesystem::path AbsolutePath(const std::filesystem::path& path) const override {
    return WithoutEndSeparator(("/" / path).lexically_normal());
  }

  std::filesystem::path CanonicalPath(const std::filesystem::path& path) const override {
    const std::scoped_lock lock(*mutex_);
    const std::filesystem::path absolute = AbsolutePath(path);
    for (const auto& [link, target] : links_)
      if (IsIn(absolute, link))
        return WithoutEndSeparator((target / absolute.lexically_relative(link)).lexically_normal());
    return absolute;
  }

  Expected<std::unique_ptr<InputFile>, FileError> OpenForReading(const std::filesystem::path& path) override {
    const std::scoped_lock lock(*mutex_);
    ++openings_;
    if (BeforeOpening) BeforeOpening(path);
    if (auto fault = Fault(path)) return *fault;
    if (folders_.contains(path)) return Error(FileFault::IsFolder);
    const auto file = files_.find(path);
    if (file == files_.end()) return Error(FileFault::NotFound);
    auto opened = std::make_unique<Input>(*this, file->second, modified_[path]);
    if (AfterOpening) AfterOpening(path);
    return std::unique_ptr<InputFile>(std::move(opened));
  }

  Expected<std::unique_ptr<OutputFile>, FileError> OpenForWriting(
      const std::filesystem::path& path) override {
    const std::scoped_lock lock(*mutex_);
    if (auto fault = Fault(path)) return *fault;
    if (folders_.contains(path)) return Error(FileFault::IsFolder);
    if (!folders_.contains(path.parent_path())) return Error(FileFault::NotFound);
    return std::unique_ptr<OutputFile>(std::make_unique<Output>(*this, path));
  }

  Expected<FolderListing, FileError> ListFolder(const std::filesystem::path& path) override {
    const std::scoped_lock lock(*mutex_);
    if (BeforeListing) BeforeListing(path);
    if (auto fault = Fault(path)) return *fault;
    if (!folders_.contains(path)) return Error(FileFault::NotFound);
    FolderListing listing;
    for (const auto& [file, content] : files_)
      if (file.parent_path() == path) listing.Files.push_back(file.filename());
    for (const auto& folder : folders_)
      if (folder.parent_path() == path && folder != path) listing.Subfolders.push_back(folder.filename());
    // No order is promised, so none that happens to be right is given.
    std::ranges::reverse(listing.Files);
    std::ranges::reverse(listing.Subfolders);
    return listing;
  }

  std::optional<FileError> CreateFolder(const std::filesystem::path& path) override {
    const std::scoped_lock lock(*mutex_);
    if (auto fault = Fault(path)) return fault;
    if (files_.contains(path)) return Error(FileFault::Other);
    if (!folders_.contains(path.parent_path())) return Error(FileFault::NotFound);
    folders_.insert(path);
    return std::nullopt;
  }

  std::optional<FileError> Remove(const std::filesystem::path& path) override {
    const std::scoped_lock lock(*mutex_);
    if (auto fault = Fault(path)) return fault;
    if (files_.erase(path) > 0) return std::nullopt;
    const auto below = [&](const std::filesystem::path& other) { return other != path && IsIn(other, path); };
    if (std::ranges::any_of(files_, below, [](const auto& file) { return file.first; }) ||
        std::ranges::any_of(folders_, below))
      return Error(FileFault::Other);
    if (folders_.erase(path) == 0) return Error(FileFault::NotFound);
    return std::nullopt;
  }

  Expected<std::filesystem::path, FileError> CreatePrivateTemporaryFolder() override {
    const std::scoped_lock lock(*mutex_);
    if (auto fault = Fault("/tmp")) return *fault;
    const std::filesystem::path path = "/tmp/private" + std::to_string(++temporaries_);
    AddFolder(path);
    return path;
  }

 private:
  class Input final : public InputFile {
   public:
    Input(FakeFiles& files, std::shared_ptr<std::string> content, int64_t modified)
        : files_(files), content_(std::move(content)), size_(content_->size()), modified_(modified) {}
    Expected<size_t, FileError> Read(std::span<char> buffer) override {
      const std::scoped_lock lock(*files_.mutex_);
      if (auto fault = files_.Fault({})) return *fault;
      const size_t left = content_->size() - std::min(at_, content_->size());
      const size_t count = std::min({buffer.size(), left, files_.piece_});
      if (count > 0) std::memcpy(buffer.data(), content_->data() + at_, count);
      at_ += count;
      return count;
    }
    uint64_t Size() const override { return size_; }
    int64_t Modified() const override { return modified_; }
    std::optional<FileError> SeekTo(uint64_t position) override {
      const std::scoped_lock lock(*files_.mutex_);
      if (auto fault = files_.Fault({})) return fault;
      at_ = static_cast<size_t>(position);
      return std::nullopt;
    }

   private:
    FakeFiles& files_;
    std::shared_ptr<std::string> content_;
    uint64_t size_;  ///< When it was opened.
    int64_t modified_;
    size_t at_ = 0;
  };

  class Output final : public OutputFile {
   public:
    Output(FakeFiles& files, std::filesystem::path path)
        : files_(files), path_(std::move(path)), replaces_(files.files_.contains(path_)) {}
    std::optional<FileError> Write(std::string_view bytes) override {
      const std::scoped_lock lock(*files_.mutex_);
      if (auto fault = files_.Fault({})) return fault;
      written_ += bytes;
      return std::nullopt;
    }
    bool Replaces() const override { return replaces_; }
    std::optional<FileError> Commit() override {
      const std::scoped_lock lock(*files_.mutex_);
      if (auto fault = files_.Fault({})) return fault;
      files_.files_[path_] = std::make_shared<std::string>(std::move(written_));
      return std::nullopt;
    }

   private:
    FakeFiles& files_;
    std::filesystem::path path_;
    bool replaces_;
    std::string written_;
  };

  static bool IsIn(const std::filesystem::path& path, const std::filesystem::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
  }
  static std::filesystem::path WithoutEndSeparator(const std::filesystem::path& path) {
    return path.has_filename() || path == path.root_path() ? path : path.parent_path();
  }
  static FileError Error(FileFault fault) {
    return {fault, fault == FileFault::PermissionDenied ? "Permission denied" : "Input/output error"};
  }
  std::optional<FileError> Fault(const std::filesystem::path& path) const {
    if (++calls_ == failAt_) return Error(failWith_);
    const auto refused = refused_.find(path);
    return refused == refused_.end() ? std::nullopt : std::optional(Error(refused->second));
  }

  /// Held by every call of the interface, which several threads may use at once. What is only for tests is
  /// for one thread.
  std::unique_ptr<std::recursive_mutex> mutex_ = std::make_unique<std::recursive_mutex>();
  std::map<std::filesystem::path, std::shared_ptr<std::string>> files_;
  std::map<std::filesystem::path, int64_t> modified_;
  int64_t changes_ = 0;
  std::set<std::filesystem::path> folders_;
  std::map<std::filesystem::path, std::filesystem::path> links_;
  std::map<std::filesystem::path, FileFault> refused_;
  size_t piece_ = SIZE_MAX;
  int failAt_ = 0;
  FileFault failWith_ = FileFault::Other;
  mutable int calls_ = 0;
  int openings_ = 0;
  int temporaries_ = 0;
};

}  // namespace korv
