#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <thread>

#include "platform/windows/extended_path.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/handle.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class WindowsFilesTest : public testing::Test {
 protected:
  // The error of writing and committing; empty when all went well.
  std::string Write(const fs::path& path, const std::string& content) {
    auto file = files->OpenForWriting(path);
    if (!file) return file.Error().Description;
    if (auto fault = (*file)->Write(content)) return fault->Description;
    if (auto fault = (*file)->Commit()) return fault->Description;
    return {};
  }
  std::string Read(const fs::path& path) {
    auto file = files->OpenForReading(path);
    if (!file) return "error: " + file.Error().Description;
    char buffer[100];
    const auto got = (*file)->Read(buffer);
    return got ? std::string(buffer, *got) : "error: " + got.Error().Description;
  }
  FileFault ReadFault(const fs::path& path) {
    auto file = files->OpenForReading(path);
    EXPECT_FALSE(file);
    return file ? FileFault::Other : file.Error().Fault;
  }
  FileFault WriteFault(const fs::path& path) {
    auto file = files->OpenForWriting(path);
    EXPECT_FALSE(file);
    return file ? FileFault::Other : file.Error().Fault;
  }
  std::vector<fs::path> Entries() {
    const auto listing = files->ListFolder(folder.Path());
    EXPECT_TRUE(listing);
    if (!listing) return {};
    std::vector<fs::path> entries = listing->Files;
    entries.insert(entries.end(), listing->Subfolders.begin(), listing->Subfolders.end());
    return entries;
  }

  std::unique_ptr<FileSystem> files = MakeSystemFiles();
  TemporaryFolder folder;
};

/// Another program that has a file open.
Handle OpenByOther(const fs::path& path, DWORD sharing, DWORD access = GENERIC_READ) {
  Handle file(
      CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_TRUE(file.Open());
  return file;
}

/// A file whose name is taken as it is written; no other call could make it, or remove it.
class WordForWordFile {
 public:
  WordForWordFile(const fs::path& path, const std::string& content) : name_(ExtendedPath(path.native())) {
    const Handle file(
        CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
  }
  ~WordForWordFile() { DeleteFileW(name_.c_str()); }
  WordForWordFile(const WordForWordFile&) = delete;
  WordForWordFile& operator=(const WordForWordFile&) = delete;

 private:
  std::wstring name_;
};

// ---- Long paths

TEST_F(WindowsFilesTest, PathsMayBeLongerThanTheUsualLimit) {
  std::vector<fs::path> chain;
  fs::path deep = folder.Path();
  for (int k = 0; k < 10; ++k) {
    deep /= std::wstring(60, static_cast<wchar_t>(L'a' + k));
    EXPECT_FALSE(files->FolderExists(deep));
    ASSERT_FALSE(files->CreateFolder(deep));
    EXPECT_FALSE(files->CreateFolder(deep)) << "there already";
    EXPECT_TRUE(files->FolderExists(deep));
    chain.push_back(deep);
  }
  const fs::path file = deep / "file.txt";
  ASSERT_GT(file.native().size(), 600U);
  EXPECT_FALSE(files->FileExists(file));
  EXPECT_EQ(ReadFault(file), FileFault::NotFound);
  EXPECT_EQ(Write(file, "old"), "");
  EXPECT_EQ(Write(file, "words"), "") << "replaced";
  EXPECT_EQ(Read(file), "words");
  EXPECT_TRUE(files->FileExists(file));
  EXPECT_EQ(*files->FileSize(file), 5U);
  EXPECT_TRUE(files->SameFile(file, deep / ".." / deep.filename() / "FILE.TXT"));
  EXPECT_EQ(files->AbsolutePath(deep / "." / "file.txt"), file);
  EXPECT_EQ(files->CanonicalPath(file).filename(), "file.txt");
  EXPECT_GT(files->CanonicalPath(file).native().size(), 600U);
  EXPECT_EQ(ReadFault(file / "x"), FileFault::NotAFolder);
  const auto listing = files->ListFolder(deep);
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->Files, ElementsAre(fs::path("file.txt")));
  EXPECT_THAT(listing->Subfolders, ElementsAre());
  EXPECT_FALSE(files->Remove(file));
  EXPECT_FALSE(files->FileExists(file));
  for (; !chain.empty(); chain.pop_back()) EXPECT_FALSE(files->Remove(chain.back()));
  EXPECT_THAT(Entries(), ElementsAre());
}

// ---- Names

TEST_F(WindowsFilesTest, NamesMayBeInAnyScriptAndForm) {
  const std::vector<fs::path> names = {L"caf\u00E9.txt", L"cafe\u0301.txt", L"\u65E5\u672C\u8A9E",
                                       L"\U0001D11E \U0001F600.txt"};
  for (const fs::path& name : names) EXPECT_EQ(Write(folder / name, PathToText(name)), "");
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->Files, testing::UnorderedElementsAreArray(names));
  for (const fs::path& name : listing->Files) {
    EXPECT_EQ(Read(folder / name), PathToText(name));
    EXPECT_EQ(PathFromText(PathToText(name)), name);
    EXPECT_EQ(files->CanonicalPath(folder / name).filename(), name);
  }
}

TEST_F(WindowsFilesTest, ANameThatIsNoTextIsListedAndReadAndItsTextMarksIt) {
  const fs::path name = std::wstring(L"a\xD834z.txt");
  EXPECT_EQ(PathToText(name), "a\xEF\xBF\xBDz.txt");
  const std::wstring full = ExtendedPath((folder / name).native());
  const Handle made(CreateFileW(full.c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW, 0, nullptr));
  if (!made.Open()) GTEST_SKIP() << "no such names on this disk";
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  ASSERT_EQ(listing->Files.size(), 1U);
  if (listing->Files[0] != name) GTEST_SKIP() << "this disk keeps another name";
  EXPECT_TRUE(files->FileExists(folder / listing->Files[0]));
  EXPECT_TRUE(files->OpenForReading(folder / listing->Files[0]));
}

TEST_F(WindowsFilesTest, NamesThatCannotBeTypedAreReadAsTheyWereListed) {
  const WordForWordFile period(folder / "report.", "period");
  const WordForWordFile blank(folder / "report ", "blank");
  const WordForWordFile device(folder / "NUL", "device");
  WriteTestFile(folder / "report", "plain");
  for (const fs::path& place : {folder.Path(), folder / "." / ""}) {
    EXPECT_EQ(Read(place / "report."), "period");
    EXPECT_EQ(Read(place / "report "), "blank");
    EXPECT_EQ(Read(place / "NUL"), "device");
    EXPECT_EQ(Read(place / "report"), "plain");
    EXPECT_EQ(*files->FileSize(place / "report "), 5U);
  }
  EXPECT_FALSE(files->SameFile(folder / "report", folder / "report."));
  for (const char* name : {"report.", "report ", "NUL"}) EXPECT_FALSE(files->Remove(folder / name));
  EXPECT_THAT(Entries(), ElementsAre(fs::path("report")));
  EXPECT_EQ(files->AbsolutePath(folder / "report. "), folder / "report") << "nothing of that name is there";
}

TEST_F(WindowsFilesTest, EitherSeparatorWillDo) {
  WriteTestFile(folder / "sub" / "a.txt", "words");
  const std::string text = PathToText(folder.Path());
  std::string turned = text + "/sub//./a.txt";
  std::replace(turned.begin(), turned.end(), '\\', '/');
  EXPECT_EQ(Read(PathFromText(turned)), "words");
  EXPECT_EQ(files->AbsolutePath(PathFromText(turned)), folder / "sub" / "a.txt");
  EXPECT_TRUE(files->SameFile(PathFromText(turned), folder / "sub" / "a.txt"));
  EXPECT_EQ(files->ListFolder(PathFromText(text + "/sub/"))->Files.size(), 1U);
}

// ---- Roots and places

TEST_F(WindowsFilesTest, ASeparatorAtTheEndIsKeptAtARootOnly) {
  struct Row {
    const wchar_t* Given;
    const wchar_t* Absolute;
  };
  for (const Row& row :
       {Row{L"C:\\", L"C:\\"}, Row{L"C:/", L"C:\\"}, Row{L"C:\\a\\..", L"C:\\"}, Row{L"C:\\a\\", L"C:\\a"},
        Row{L"C:\\a\\b\\..\\", L"C:\\a"}, Row{LR"(\\server\share\)", LR"(\\server\share\)"},
        Row{LR"(\\server\share\a\)", LR"(\\server\share\a)"},
        Row{LR"(\\server\share\..\a)", LR"(\\server\share\a)"},
        Row{LR"(//server/share/a/../b)", LR"(\\server\share\b)"},
        Row{LR"(\\server\share)", LR"(\\server\share)"}, Row{LR"(\\?\C:\a\b)", LR"(C:\a\b)"},
        Row{LR"(\\?\UNC\server\share\a)", LR"(\\server\share\a)"}, Row{LR"(\\.\C:\a)", LR"(C:\a)"},
        Row{L"", L""}})
    EXPECT_EQ(files->AbsolutePath(row.Given), fs::path(row.Absolute)) << PathToText(row.Given);
}

/// Makes a folder the current one for as long as it lives.
class CurrentFolder {
 public:
  explicit CurrentFolder(const fs::path& path) : before_(fs::current_path()) { fs::current_path(path); }
  ~CurrentFolder() { fs::current_path(before_); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  fs::path before_;
};

TEST_F(WindowsFilesTest, PathsWithoutAPlaceBeginAtTheCurrentFolder) {
  const CurrentFolder here(folder.Path());
  const std::wstring drive = folder.Path().root_name().native();
  EXPECT_EQ(files->AbsolutePath("x.txt"), folder / "x.txt");
  EXPECT_EQ(files->AbsolutePath(drive + L"x.txt"), folder / "x.txt");
  EXPECT_EQ(files->AbsolutePath(drive), folder.Path());
  EXPECT_EQ(files->AbsolutePath(L"\\x.txt"), fs::path(drive + L"\\x.txt"));
  EXPECT_EQ(files->AbsolutePath(L"\\a/../x.txt"), fs::path(drive + L"\\x.txt"));
  const WordForWordFile file(folder / "x.", "words");
  EXPECT_EQ(Read(drive + L".\\x."), "words");
}

TEST_F(WindowsFilesTest, TheRootOfADriveIsAFolder) {
  for (const wchar_t* root : {L"C:\\", L"C:/"}) {
    EXPECT_TRUE(files->FolderExists(root));
    EXPECT_FALSE(files->FileExists(root));
    EXPECT_FALSE(files->CreateFolder(root)) << "there already";
    EXPECT_EQ(WriteFault(root), FileFault::IsFolder);
    EXPECT_EQ(ReadFault(root), FileFault::IsFolder);
    const auto listing = files->ListFolder(root);
    ASSERT_TRUE(listing);
    EXPECT_THAT(listing->Subfolders, testing::Contains(fs::path("windows")));
  }
  EXPECT_TRUE(files->FolderExists("C:"));
  EXPECT_FALSE(files->FolderExists("1:\\"));
}

// ---- Faults

TEST_F(WindowsFilesTest, AFileThatIsUsedAsAFolderIsToldFromAMissingOne) {
  WriteTestFile(folder / "a.txt", "words");
  for (const fs::path& path : {folder / "a.txt" / "b.txt", folder / "a.txt" / "b" / "c.txt"}) {
    EXPECT_EQ(ReadFault(path), FileFault::NotAFolder);
    EXPECT_EQ(WriteFault(path), FileFault::NotAFolder);
    EXPECT_EQ(files->ListFolder(path).Error().Fault, FileFault::NotAFolder);
    EXPECT_EQ(files->FileSize(path).Error().Fault, FileFault::NotAFolder);
    EXPECT_EQ(files->CreateFolder(path)->Fault, FileFault::NotAFolder);
    EXPECT_EQ(files->Remove(path)->Fault, FileFault::NotAFolder);
  }
  EXPECT_EQ(files->CreateFolder(folder / "a.txt")->Fault, FileFault::NotAFolder);
  const fs::path missing = folder / "missing" / "b.txt";
  EXPECT_EQ(ReadFault(missing), FileFault::NotFound);
  EXPECT_EQ(WriteFault(missing), FileFault::NotFound);
  EXPECT_EQ(files->ListFolder(missing).Error().Fault, FileFault::NotFound);
}

TEST_F(WindowsFilesTest, NamesThatCannotBeAreNotFound) {
  for (const wchar_t* name : {L"a?.txt", L"a*.txt", L"a\"b", L"a|b", L"a<b>"}) {
    EXPECT_FALSE(files->FileExists(folder / name));
    EXPECT_EQ(ReadFault(folder / name), FileFault::NotFound) << PathToText(name);
    EXPECT_EQ(WriteFault(folder / name), FileFault::NotFound) << PathToText(name);
  }
  EXPECT_EQ(WriteFault(folder / L"a.txt:part"), FileFault::NotFound) << "cannot be put in place in the end";
  EXPECT_THAT(Entries(), ElementsAre());
}

TEST_F(WindowsFilesTest, AFileThatAnotherProgramKeepsToItselfIsDenied) {
  WriteTestFile(folder / "a.txt", "words");
  const Handle other = OpenByOther(folder / "a.txt", 0);
  EXPECT_EQ(ReadFault(folder / "a.txt"), FileFault::PermissionDenied);
  EXPECT_EQ(WriteFault(folder / "a.txt"), FileFault::PermissionDenied);
  EXPECT_EQ(files->Remove(folder / "a.txt")->Fault, FileFault::PermissionDenied);
  EXPECT_TRUE(files->FileExists(folder / "a.txt"));
  EXPECT_EQ(*files->FileSize(folder / "a.txt"), 5U);
  EXPECT_TRUE(files->SameFile(folder / "a.txt", folder / "a.txt"));
}

TEST_F(WindowsFilesTest, AFileIsReadWhileAnotherProgramWritesIt) {
  WriteTestFile(folder / "a.txt", "words");
  const Handle other = OpenByOther(folder / "a.txt", FILE_SHARE_READ, GENERIC_WRITE);
  EXPECT_EQ(Read(folder / "a.txt"), "words");
}

TEST_F(WindowsFilesTest, ALockedPartOfAFileIsDenied) {
  WriteTestFile(folder / "a.txt", "words");
  const Handle other = OpenByOther(folder / "a.txt", kShareAll, GENERIC_READ | GENERIC_WRITE);
  ASSERT_TRUE(LockFile(other.Get(), 0, 0, 5, 0));
  const Handle plain = OpenByOther(folder / "a.txt", kShareAll);
  char buffer[10];
  DWORD read = 0;
  if (ReadFile(plain.Get(), buffer, sizeof buffer, &read, nullptr)) GTEST_SKIP() << "nobody heeds locks here";
  auto file = files->OpenForReading(folder / "a.txt");
  ASSERT_TRUE(file);
  const auto got = (*file)->Read(buffer);
  ASSERT_FALSE(got);
  EXPECT_EQ(got.Error().Fault, FileFault::PermissionDenied);
}

TEST_F(WindowsFilesTest, TheWordsOfAFaultHaveNoEndOfASentence) {
  const std::string words = files->OpenForReading(folder / "missing.txt").Error().Description;
  ASSERT_FALSE(words.empty());
  EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
  EXPECT_NE(words.back(), '.');
  EXPECT_NE(words.back(), ' ');
}

// ---- Writing

TEST_F(WindowsFilesTest, AReadOnlyFileIsNotReplaced) {
  WriteTestFile(folder / "out.txt", "old");
  ASSERT_TRUE(SetFileAttributesW((folder / "out.txt").c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(WriteFault(folder / "out.txt"), FileFault::PermissionDenied);
  EXPECT_EQ(Read(folder / "out.txt"), "old");
  EXPECT_THAT(Entries(), ElementsAre(fs::path("out.txt")));
  SetFileAttributesW((folder / "out.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFilesTest, AFileThatCouldNotBeReplacedInTheEndIsRefusedAtOnce) {
  WriteTestFile(folder / "out.txt", "old");
  {
    const Handle reader = OpenByOther(folder / "out.txt", FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(WriteFault(folder / "out.txt"), FileFault::PermissionDenied);
  }
  const Handle reader = OpenByOther(folder / "out.txt", kShareAll);
  EXPECT_TRUE(files->OpenForWriting(folder / "out.txt")) << "this one does not mind";
  EXPECT_THAT(Entries(), ElementsAre(fs::path("out.txt")));
}

TEST_F(WindowsFilesTest, AFileThatIsOpenedInBetweenIsLeftAlone) {
  WriteTestFile(folder / "out.txt", "old");
  auto file = files->OpenForWriting(folder / "out.txt");
  ASSERT_TRUE(file);
  EXPECT_FALSE((*file)->Write("new"));
  {
    const Handle reader = OpenByOther(folder / "out.txt", FILE_SHARE_READ | FILE_SHARE_WRITE);
    const auto fault = (*file)->Commit();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->Fault, FileFault::PermissionDenied);
    EXPECT_TRUE((*file)->Commit()) << "once failed, it stays so";
  }
  file->reset();
  EXPECT_EQ(Read(folder / "out.txt"), "old");
  EXPECT_THAT(Entries(), ElementsAre(fs::path("out.txt")));
}

TEST_F(WindowsFilesTest, AReplacedFileKeepsItsAttributes) {
  WriteTestFile(folder / "out.txt", "old");
  ASSERT_TRUE(SetFileAttributesW((folder / "out.txt").c_str(), FILE_ATTRIBUTE_HIDDEN));
  const DWORD before = GetFileAttributesW((folder / "out.txt").c_str());
  if ((before & FILE_ATTRIBUTE_HIDDEN) == 0) GTEST_SKIP() << "this disk has no hidden files";
  EXPECT_EQ(Write(folder / "out.txt", "new"), "");
  EXPECT_EQ(Read(folder / "out.txt"), "new");
  EXPECT_NE(GetFileAttributesW((folder / "out.txt").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(WindowsFilesTest, AFileThatIsGoneInBetweenIsMadeAgain) {
  WriteTestFile(folder / "out.txt", "old");
  auto file = files->OpenForWriting(folder / "out.txt");
  ASSERT_TRUE(file);
  EXPECT_FALSE((*file)->Write("new"));
  EXPECT_FALSE(files->Remove(folder / "out.txt"));
  EXPECT_FALSE((*file)->Commit());
  EXPECT_EQ(Read(folder / "out.txt"), "new");
  file->reset();
  EXPECT_THAT(Entries(), ElementsAre(fs::path("out.txt")));
}

// ---- Devices and pipes

TEST_F(WindowsFilesTest, ADeviceIsWrittenDirectlyAndReadToItsEnd) {
  const CurrentFolder here(folder.Path());
  for (const fs::path& name : {fs::path("NUL"), fs::path("nul"), fs::path(LR"(\\.\NUL)"), folder / "NUL"}) {
    EXPECT_TRUE(files->FileExists(name)) << PathToText(name);
    EXPECT_FALSE(files->FolderExists(name));
    EXPECT_EQ(files->FileSize(name).Error().Fault, FileFault::Other);
    EXPECT_EQ(Write(name, "words"), "");
    EXPECT_EQ(Write(files->AbsolutePath(name), "words"), "");
    EXPECT_EQ(Read(name), "");
    EXPECT_FALSE(files->SameFile(name, folder.Path()));
    EXPECT_TRUE(files->ListFolder(name).Error().Fault == FileFault::NotAFolder);
  }
  EXPECT_FALSE(files->FileExists(LR"(\\.\no such device)"));
  EXPECT_THAT(Entries(), ElementsAre());
}

Handle MakePipe(const wchar_t* name, DWORD direction) {
  return Handle(CreateNamedPipeW(name, direction, PIPE_TYPE_BYTE | PIPE_WAIT, 1, 4096, 4096, 0, nullptr));
}

TEST_F(WindowsFilesTest, APipeIsWrittenDirectly) {
  const wchar_t* const name = LR"(\\.\pipe\korv-test-write)";
  const Handle reader = MakePipe(name, PIPE_ACCESS_INBOUND);
  ASSERT_TRUE(reader.Open());
  EXPECT_TRUE(files->FileExists(name));
  EXPECT_FALSE(files->FileSize(name));
  EXPECT_EQ(Write(name, "words"), "") << "asking before has not used the pipe up";
  char buffer[10];
  DWORD got = 0;
  ASSERT_TRUE(ReadFile(reader.Get(), buffer, sizeof buffer, &got, nullptr));
  EXPECT_EQ(std::string(buffer, got), "words");
}

TEST_F(WindowsFilesTest, APipeIsReadToItsEnd) {
  const wchar_t* const name = LR"(\\.\pipe\korv-test-read)";
  Handle writer = MakePipe(name, PIPE_ACCESS_OUTBOUND);
  ASSERT_TRUE(writer.Open());
  auto file = files->OpenForReading(name);
  ASSERT_TRUE(file);
  EXPECT_EQ((*file)->Size(), 0U);
  EXPECT_TRUE((*file)->SeekTo(0)) << "a pipe cannot go back";
  DWORD written = 0;
  ASSERT_TRUE(WriteFile(writer.Get(), "words", 5, &written, nullptr));
  char buffer[10];
  EXPECT_EQ(*(*file)->Read(buffer), 5U);
  writer.Close();
  EXPECT_EQ(*(*file)->Read(buffer), 0U);
}

// ---- Folders and links

TEST_F(WindowsFilesTest, TheTemporaryFolderIsForItsOwnerOnly) {
  constexpr DWORD kRoom = 4096;
  alignas(SECURITY_DESCRIPTOR) unsigned char descriptor[kRoom];
  DWORD needed = 0;
  ASSERT_TRUE(GetFileSecurityW(folder.Path().c_str(), DACL_SECURITY_INFORMATION, descriptor, kRoom, &needed));
  BOOL present = FALSE;
  BOOL byDefault = FALSE;
  ACL* rights = nullptr;
  ASSERT_TRUE(GetSecurityDescriptorDacl(descriptor, &present, &rights, &byDefault));
  ASSERT_TRUE(present && rights) << "everybody may do everything";
  ASSERT_GT(rights->AceCount, 0U);
  for (DWORD k = 0; k < rights->AceCount; ++k) {
    ACCESS_ALLOWED_ACE* right = nullptr;
    ASSERT_TRUE(GetAce(rights, k, reinterpret_cast<void**>(&right)));
    for (const WELL_KNOWN_SID_TYPE others : {WinWorldSid, WinBuiltinUsersSid, WinAuthenticatedUserSid})
      EXPECT_FALSE(right->Header.AceType == ACCESS_ALLOWED_ACE_TYPE &&
                   IsWellKnownSid(&right->SidStart, others))
          << others;
  }
  WriteTestFile(folder / "a.txt", "words");
  EXPECT_EQ(Read(folder / "a.txt"), "words") << "its owner can";
}

TEST_F(WindowsFilesTest, HiddenAndSystemFilesAreListed) {
  WriteTestFile(folder / "hidden.txt", "words");
  WriteTestFile(folder / "system.txt", "words");
  SetFileAttributesW((folder / "hidden.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
  SetFileAttributesW((folder / "system.txt").c_str(), FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_THAT(Entries(), UnorderedElementsAre(fs::path("hidden.txt"), fs::path("system.txt")));
}

TEST(EntryKind, OnlyWhatLeadsElsewhereIsALink) {
  struct Row {
    DWORD Attributes;
    DWORD Tag;
    EntryKind Kind;
  };
  constexpr DWORD kReparse = FILE_ATTRIBUTE_REPARSE_POINT;
  constexpr DWORD kFolder = FILE_ATTRIBUTE_DIRECTORY;
  constexpr DWORD kCloud = 0x9000001A;
  constexpr DWORD kOtherSystemsLink = 0xA000001D;
  constexpr DWORD kOtherSystemsPipe = 0x80000024;
  constexpr DWORD kDeduplicated = 0x80000013;
  for (const Row& row :
       {Row{FILE_ATTRIBUTE_NORMAL, 0, EntryKind::File}, Row{kFolder, 0, EntryKind::Folder},
        Row{FILE_ATTRIBUTE_ARCHIVE, IO_REPARSE_TAG_SYMLINK, EntryKind::File},
        Row{kReparse, IO_REPARSE_TAG_SYMLINK, EntryKind::Link},
        Row{kReparse | kFolder, IO_REPARSE_TAG_SYMLINK, EntryKind::Link},
        Row{kReparse | kFolder, IO_REPARSE_TAG_MOUNT_POINT, EntryKind::Link},
        Row{kReparse | kFolder, 0, EntryKind::Link}, Row{kReparse, kOtherSystemsLink, EntryKind::Link},
        Row{kReparse, kCloud, EntryKind::File}, Row{kReparse | kFolder, kCloud, EntryKind::Folder},
        Row{kReparse, kDeduplicated, EntryKind::File}, Row{kReparse, kOtherSystemsPipe, EntryKind::Special},
        Row{FILE_ATTRIBUTE_DEVICE, 0, EntryKind::Special}})
    EXPECT_EQ(KindOfEntry(row.Attributes, row.Tag), row.Kind) << row.Attributes << ' ' << row.Tag;
}

/// Whether a link could be made: the system may keep that to its administrators.
bool MakeLink(const fs::path& link, const fs::path& target, bool toFolder) {
  const DWORD kind = toFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
  constexpr DWORD kAnyUser = 2;
  return CreateSymbolicLinkW(link.c_str(), target.c_str(), kind | kAnyUser) &&
         GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
}

TEST_F(WindowsFilesTest, ALinkStaysALink) {
  WriteTestFile(folder / "real" / "out", "old");
  if (!MakeLink(folder / "link", folder / "real" / "out", false)) GTEST_SKIP() << "no links here";
  EXPECT_EQ(Write(folder / "link", "new"), "");
  EXPECT_TRUE(IsLink(folder / "link"));
  EXPECT_EQ(ReadTestFile(folder / "real" / "out"), "new");
  EXPECT_EQ(files->CanonicalPath(folder / "link"), files->CanonicalPath(folder / "real" / "out"));
}

TEST_F(WindowsFilesTest, ALinkThatLeadsNowhereGetsItsFile) {
  if (!MakeLink(folder / "link", folder / "new", false)) GTEST_SKIP() << "no links here";
  {
    auto file = files->OpenForWriting(folder / "link");
    ASSERT_TRUE(file);
    EXPECT_FALSE(files->FileExists(folder / "new")) << "nothing is seen yet";
  }
  EXPECT_FALSE(files->FileExists(folder / "new")) << "given up";
  EXPECT_EQ(Write(folder / "link", "words"), "");
  EXPECT_TRUE(IsLink(folder / "link"));
  EXPECT_EQ(ReadTestFile(folder / "new"), "words");
}

TEST_F(WindowsFilesTest, ListsLinksToFilesButNotToFolders) {
  WriteTestFile(folder / "sub" / "a.txt", "words");
  if (!MakeLink(folder / "link to file", folder / "sub" / "a.txt", false) ||
      !MakeLink(folder / "link to folder", folder / "sub", true))
    GTEST_SKIP() << "no links here";
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->Files, UnorderedElementsAre(fs::path("link to file")));
  EXPECT_THAT(listing->Subfolders, UnorderedElementsAre(fs::path("sub")));
  EXPECT_EQ(*files->FileSize(folder / "link to file"), 5U);
  EXPECT_TRUE(files->FolderExists(folder / "link to folder"));
}

}  // namespace
}  // namespace korv
