#include "platform/windows/extended_path.h"

#include <gtest/gtest.h>

#include "platform/windows/wide_text.h"

namespace korv {
namespace {

struct Row {
  const wchar_t* Plain;
  const wchar_t* Extended;
};

TEST(ExtendedPath, TakesPathsWordForWordAndPlainPathTakesItBack) {
  for (const Row& row :
       {Row{LR"(C:\)", LR"(\\?\C:\)"}, Row{LR"(C:\a b\c.txt)", LR"(\\?\C:\a b\c.txt)"},
        Row{LR"(z:\x)", LR"(\\?\z:\x)"}, Row{LR"(\\server\share\x)", LR"(\\?\UNC\server\share\x)"},
        Row{LR"(\\server\share\)", LR"(\\?\UNC\server\share\)"},
        Row{L"C:\\caf\u00E9\\\u65E5\u672C", L"\\\\?\\C:\\caf\u00E9\\\u65E5\u672C"},
        Row{LR"(\\.\NUL)", LR"(\\.\NUL)"}, Row{LR"(\\.\pipe\x)", LR"(\\.\pipe\x)"},
        Row{LR"(\\?\Volume{1}\x)", LR"(\\?\Volume{1}\x)"}, Row{L"", L""}}) {
    EXPECT_EQ(ExtendedPath(row.Plain), row.Extended);
    EXPECT_EQ(PlainPath(row.Extended), row.Plain);
    EXPECT_EQ(ExtendedPath(row.Extended), row.Extended) << "a second time changes nothing";
    EXPECT_EQ(PlainPath(row.Plain), row.Plain) << "nor here";
  }
}

TEST(ExtendedPath, LeavesPathsThatAreNotAbsolute) {
  for (const wchar_t* path : {L"C:", L"C:x", L"x", LR"(a\b)", LR"(\x)", L"/x", L"1:\\x"})
    EXPECT_EQ(ExtendedPath(path), path);
}

TEST(PlainPath, KnowsDrivesAndServersAmongDevices) {
  for (const Row& row :
       {Row{LR"(C:\x)", LR"(\\.\C:\x)"}, Row{LR"(\\server\share)", LR"(\\.\UNC\server\share)"},
        Row{LR"(\\server\share)", LR"(\\?\unc\server\share)"}, Row{LR"(\\.\C:)", LR"(\\.\C:)"},
        Row{LR"(\\?\C:)", LR"(\\?\C:)"}, Row{LR"(\\?\UNC\)", LR"(\\?\UNC\)"},
        Row{LR"(\\?\UNCLE\x)", LR"(\\?\UNCLE\x)"}, Row{LR"(\\?\)", LR"(\\?\)"}})
    EXPECT_EQ(PlainPath(row.Extended), row.Plain);
}

TEST(WideText, KeepsEveryCharacterAndMarksWhatIsNone) {
  struct Text {
    const wchar_t* Wide;
    const char* Utf8;
  };
  for (const Text& text : {Text{L"", ""}, Text{L"caf\u00E9", "caf\xC3\xA9"}, Text{L"e\u0301", "e\xCC\x81"},
                           Text{L"\U0001D11E", "\xF0\x9D\x84\x9E"}}) {
    EXPECT_EQ(ToUtf8(text.Wide), text.Utf8);
    EXPECT_EQ(ToWide(text.Utf8), text.Wide);
  }
  EXPECT_EQ(ToUtf8(L"a\xD834z"), "a\xEF\xBF\xBDz") << "half a character";
  EXPECT_EQ(ToUtf8(L"a\xDD1E"), "a\xEF\xBF\xBD") << "the other half";
  EXPECT_EQ(ToUtf8(L"\xDD1E\xD834"), "\xEF\xBF\xBD\xEF\xBF\xBD") << "the wrong way round";
  EXPECT_EQ(ToWide("a\xFFz"), L"a\xFFFDz");
}

}  // namespace
}  // namespace korv
