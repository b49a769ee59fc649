#include "platform/windows/system_error.h"

#include <gtest/gtest.h>

#include "base/utf8.h"

namespace korv {
namespace {

TEST(SystemError, TellsTheKindsOfFaultApart) {
  struct Row {
    DWORD Error;
    FileFault Fault;
  };
  for (const Row& row :
       {Row{ERROR_FILE_NOT_FOUND, FileFault::NotFound}, Row{ERROR_PATH_NOT_FOUND, FileFault::NotFound},
        Row{ERROR_INVALID_NAME, FileFault::NotFound}, Row{ERROR_BAD_NETPATH, FileFault::NotFound},
        Row{ERROR_ACCESS_DENIED, FileFault::PermissionDenied},
        Row{ERROR_SHARING_VIOLATION, FileFault::PermissionDenied},
        Row{ERROR_LOCK_VIOLATION, FileFault::PermissionDenied},
        Row{ERROR_WRITE_PROTECT, FileFault::PermissionDenied}, Row{ERROR_DIRECTORY, FileFault::NotAFolder},
        Row{ERROR_DISK_FULL, FileFault::NoSpace}, Row{ERROR_HANDLE_DISK_FULL, FileFault::NoSpace},
        Row{ERROR_CRC, FileFault::Other}, Row{ERROR_NOT_READY, FileFault::Other}})
    EXPECT_EQ(ErrorOf(row.Error).Fault, row.Fault) << row.Error;
  EXPECT_EQ(FolderError().Fault, FileFault::IsFolder);
}

TEST(SystemError, DescribesEachInOneLineWithoutAPeriod) {
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION,
                            ERROR_DISK_FULL, ERROR_DIRECTORY, ERROR_BROKEN_PIPE}) {
    const std::string words = ErrorOf(error).Description;
    ASSERT_FALSE(words.empty());
    EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
    EXPECT_EQ(MendedUtf8(words), words);
    EXPECT_NE(words.back(), '.') << words;
    EXPECT_NE(words.back(), ' ') << words;
    EXPECT_NE(words, ErrorOf(ERROR_CRC).Description);
  }
  constexpr DWORD kNobodyKnows = 0x2FFF'FFFF;
  EXPECT_EQ(ErrorOf(kNobodyKnows).Description, "Error 805306367");
}

}  // namespace
}  // namespace korv
