#include "platform/windows/typed_input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

namespace korv {
namespace {

/// A console at which somebody types: each text is what one read of it gives.
class Typist {
 public:
  explicit Typist(std::deque<std::wstring> texts) : texts_(std::move(texts)) {}

  TypedInput Input() {
    return TypedInput([this](std::span<wchar_t> units) {
      ++Reads;
      if (texts_.empty()) return size_t{0};
      const std::wstring text = texts_.front();
      texts_.pop_front();
      std::copy(text.begin(), text.end(), units.begin());
      return text.size();
    });
  }

  int Reads = 0;

 private:
  std::deque<std::wstring> texts_;
};

std::string ReadAll(TypedInput& input, size_t atOnce) {
  std::string all;
  std::string buffer(atOnce, '\0');
  while (const size_t got = input.Read(buffer)) all.append(buffer, 0, got);
  return all;
}

struct Row {
  std::deque<std::wstring> Typed;
  std::string Text;
};

TEST(TypedInput, IsTextUntilCtrlZBeginsALine) {
  using namespace std::string_literals;
  const Row rows[] = {
      {{}, ""},
      {{L"one\r\n", L"two\r\n"}, "one\r\ntwo\r\n"},
      {{L"caf\u00E9 \u65E5\r\n"}, "caf\xC3\xA9 \xE6\x97\xA5\r\n"},
      {{L"\x1A\r\n", L"more\r\n"}, ""},
      {{L"one\r\n", L"\x1A", L"more\r\n"}, "one\r\n"},
      {{L"one\r\n\x1Amore\r\n"}, "one\r\n"},
      {{L"one\x1A\r\n", L"two\r\n"}, "one\x1A\r\ntwo\r\n"},
      {{L"on",
        L"\x1A"
        L"e\r\n"},
       "on\x1A"
       "e\r\n"},
      // A character in two pieces, at a piece's end and alone.
      {{L"a\xD834", L"\xDD1E z\r\n"}, "a\xF0\x9D\x84\x9E z\r\n"},
      {{L"\xD834", L"\xDD1E"}, "\xF0\x9D\x84\x9E"},
      {{L"\xD834", L"\xD834", L"\xDD1E"}, "\xEF\xBF\xBD\xF0\x9D\x84\x9E"},
      // Half a character remains half a character.
      {{L"a\xD834", L"z"}, "a\xEF\xBF\xBDz"},
      {{L"a\xDD1Ez"}, "a\xEF\xBF\xBDz"},
      {{L"a\xD834"}, "a\xEF\xBF\xBD"},
      {{L"a\r\n\xD834", L"\x1A"}, "a\r\n\xEF\xBF\xBD\x1A"},
  };
  for (const Row& row : rows) {
    for (const size_t atOnce : {1U, 3U, 1000U}) {
      Typist typist(row.Typed);
      TypedInput input = typist.Input();
      EXPECT_EQ(ReadAll(input, atOnce), row.Text) << atOnce;
    }
  }
}

TEST(TypedInput, AsksNobodyAnyMoreAfterItsEnd) {
  Typist typist({L"\x1A\r\n", L"more\r\n"});
  TypedInput input = typist.Input();
  char buffer[10];
  EXPECT_EQ(input.Read(buffer), 0U);
  EXPECT_EQ(input.Read(buffer), 0U);
  EXPECT_EQ(typist.Reads, 1);
}

TEST(TypedInput, WaitsForNoMoreThanItNeeds) {
  Typist typist({L"one\r\n", L"two\r\n"});
  TypedInput input = typist.Input();
  char buffer[100];
  EXPECT_EQ(input.Read(buffer), 5U) << "a line is handed on when it is typed";
  EXPECT_EQ(typist.Reads, 1);
}

}  // namespace
}  // namespace korv
