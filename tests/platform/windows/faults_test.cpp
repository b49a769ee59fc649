// The Windows file layer with the system's calls failing one after the other: what is written is the old file
// or the new one, what is read is all there or refused, and no temporary file stays. The linker has all that
// is linked call the system through the pointers of this file: see CMakeLists.txt.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;

enum Call : size_t {
  kCreateFile,
  kReadFile,
  kWriteFile,
  kFlush,
  kCloseHandle,
  kReplaceFile,
  kMoveFile,
  kDeleteFile,
  kSeek,
  kInformation,
  kAttributes,
  kAttributesEx,
  kSetAttributes,
  kFindFirst,
  kFindNext,
  kCreateDirectory,
  kCalls
};
constexpr const char* kNames[kCalls] = {"CreateFileW",        "ReadFile",
                                        "WriteFile",          "FlushFileBuffers",
                                        "CloseHandle",        "ReplaceFileW",
                                        "MoveFileExW",        "DeleteFileW",
                                        "SetFilePointerEx",   "GetFileInformationByHandle",
                                        "GetFileAttributesW", "GetFileAttributesExW",
                                        "SetFileAttributesW", "FindFirstFileExW",
                                        "FindNextFileW",      "CreateDirectoryW"};

/// Which call fails. Calls are counted while it is armed.
struct Wish {
  bool Armed = false;
  size_t Which = kCalls;
  int At = 0;
  bool On = false;  ///< And all that follow.
  DWORD Error = 0;
  std::array<int, kCalls> Counts{};
};
Wish wish;

bool Fails(Call call) {
  if (!wish.Armed) return false;
  const int number = ++wish.Counts[call];
  if (call != wish.Which || (number != wish.At && !(wish.On && number > wish.At))) return false;
  SetLastError(wish.Error);
  return true;
}

template <typename Function>
struct Faulty;
template <typename Result, typename... Arguments>
struct Faulty<Result (*)(Arguments...)> {
  template <Call kCall, Result (**kReal)(Arguments...), intptr_t kFailed = 0>
  static Result Do(Arguments... arguments) {
    // What fails to close is closed all the same.
    if (kCall == kCloseHandle && wish.Armed) {
      const Result closed = (*kReal)(arguments...);
      return Fails(kCall) ? (Result)kFailed : closed;
    }
    return Fails(kCall) ? (Result)kFailed : (*kReal)(arguments...);
  }
};

}  // namespace
}  // namespace korv

#define KORV_FAULTY(name, call, failed)                                     \
  extern "C" decltype(&::name) real##name __asm__("__real___imp_" #name);   \
  extern "C" decltype(&::name) faulty##name __asm__("__wrap___imp_" #name); \
  decltype(&::name) faulty##name = &korv::Faulty<decltype(&::name)>::Do<korv::call, &real##name, failed>;

KORV_FAULTY(CreateFileW, kCreateFile, -1)
KORV_FAULTY(ReadFile, kReadFile, 0)
KORV_FAULTY(WriteFile, kWriteFile, 0)
KORV_FAULTY(FlushFileBuffers, kFlush, 0)
KORV_FAULTY(CloseHandle, kCloseHandle, 0)
KORV_FAULTY(ReplaceFileW, kReplaceFile, 0)
KORV_FAULTY(MoveFileExW, kMoveFile, 0)
KORV_FAULTY(DeleteFileW, kDeleteFile, 0)
KORV_FAULTY(SetFilePointerEx, kSeek, 0)
KORV_FAULTY(GetFileInformationByHandle, kInformation, 0)
KORV_FAULTY(GetFileAttributesW, kAttributes, -1)
KORV_FAULTY(GetFileAttributesExW, kAttributesEx, 0)
KORV_FAULTY(SetFileAttributesW, kSetAttributes, 0)
KORV_FAULTY(FindFirstFileExW, kFindFirst, -1)
KORV_FAULTY(FindNextFileW, kFindNext, 0)
KORV_FAULTY(CreateDirectoryW, kCreateDirectory, 0)

namespace korv {
namespace {

class WindowsFaults : public testing::Test {
 protected:
  /// Has each call that `act` makes fail once and from then on, with each error; `after` looks at what is
  /// left and gets what `act` returned, what was wrong. Returns the number of faults.
  int FailEveryCall(const std::function<void()>& before, const std::function<std::string()>& act,
                    const std::function<void(const std::string&, Call)>& after) {
    before();
    wish = {.Armed = true};
    EXPECT_EQ(act(), "");
    wish.Armed = false;
    const std::array<int, kCalls> counts = wish.Counts;
    int faults = 0;
    for (size_t call = 0; call < kCalls; ++call)
      for (int at = 1; at <= counts[call]; ++at)
        for (const DWORD error :
             {DWORD{ERROR_ACCESS_DENIED}, DWORD{ERROR_DISK_FULL}, DWORD{ERROR_SHARING_VIOLATION}})
          for (const bool on : {false, true}) {
            before();
            wish = {.Armed = true, .Which = call, .At = at, .On = on, .Error = error};
            const std::string fault = act();
            wish.Armed = false;
            SCOPED_TRACE(std::string(kNames[call]) + " " + std::to_string(at) +
                         (on ? " and on, error " : ", error ") + std::to_string(error));
            after(fault, static_cast<Call>(call));
            ++faults;
          }
    return faults;
  }

  std::string Write(const fs::path& path) {
    auto file = files->OpenForWriting(path);
    if (!file) return "open: " + file.Error().Description;
    for (const char* piece : {"what is ", "new ", "here"})
      if (const auto fault = (*file)->Write(piece)) return "write: " + fault->Description;
    if (const auto fault = (*file)->Commit()) return "commit: " + fault->Description;
    return {};
  }
  std::string Content(const fs::path& path) const {
    return fs::exists(path) ? ReadTestFile(path) : "nothing";
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path()))
      names.push_back(entry.path().filename().string());
    return names;
  }
  /// Without what an earlier fault left.
  void Begin(const std::string& old) {
    for (const std::string& name : Names()) fs::remove_all(folder / name);
    if (!old.empty()) WriteTestFile(folder / "report", old);
  }
  void ExpectOldOrNew(const std::string& old) {
    const int faults =
        FailEveryCall([&] { Begin(old); }, [&] { return Write(folder / "report"); },
                      [&](const std::string& fault, Call call) {
                        EXPECT_EQ(Content(folder / "report"), fault.empty() ? "what is new here"
                                                              : old.empty() ? "nothing"
                                                                            : old)
                            << fault;
                        if (call == kDeleteFile) return;
                        for (const std::string& name : Names()) EXPECT_EQ(name, "report") << fault;
                      });
    EXPECT_GT(faults, 30);
  }

  std::unique_ptr<FileSystem> files = MakeSystemFiles();
  TemporaryFolder folder;
};

TEST_F(WindowsFaults, AReplacedFileIsTheOldOneOrTheNewOneAndTheTruthIsTold) {
  ExpectOldOrNew("old");
}

TEST_F(WindowsFaults, ANewFileIsThereWholeOrNotAtAllAndTheTruthIsTold) {
  ExpectOldOrNew("");
}

TEST_F(WindowsFaults, AFileIsReadWholeOrRefused) {
  const std::string content(10'000, 'x');
  WriteTestFile(folder / "in", content);
  std::string read;
  const int faults = FailEveryCall([&] { read.clear(); },
                                   [&]() -> std::string {
                                     auto file = files->OpenForReading(folder / "in");
                                     if (!file) return "open: " + file.Error().Description;
                                     for (char buffer[4096];;) {
                                       const auto got = (*file)->Read(buffer);
                                       if (!got) return "read: " + got.Error().Description;
                                       if (*got == 0) return {};
                                       read.append(buffer, *got);
                                     }
                                   },
                                   [&](const std::string& fault, Call) {
                                     if (fault.empty()) {
                                       EXPECT_EQ(read.size(), content.size());
                                     }
                                   });
  EXPECT_GT(faults, 10);
}

TEST_F(WindowsFaults, AFolderIsListedWholeOrRefused) {
  for (const char* name : {"a", "b", "c"}) WriteTestFile(folder / name, name);
  size_t listed = 0;
  const int faults = FailEveryCall([&] { listed = 0; },
                                   [&]() -> std::string {
                                     const auto listing = files->ListFolder(folder.Path());
                                     if (!listing) return "list: " + listing.Error().Description;
                                     listed = listing->Files.size();
                                     return {};
                                   },
                                   [&](const std::string& fault, Call) {
                                     if (fault.empty()) {
                                       EXPECT_EQ(listed, 3U);
                                     }
                                   });
  EXPECT_GT(faults, 10);
}

TEST_F(WindowsFaults, FoldersAreMadeOrRefused) {
  const int faults = FailEveryCall([&] { Begin(""); },
                                   [&]() -> std::string {
                                     const auto fault = files->CreateFolder(folder / "made");
                                     return fault ? "create: " + fault->Description : "";
                                   },
                                   [&](const std::string& fault, Call) {
                                     if (fault.empty()) {
                                       EXPECT_TRUE(fs::is_directory(folder / "made"));
                                     }
                                   });
  EXPECT_GE(faults, 6);
}

}  // namespace
}  // namespace korv
