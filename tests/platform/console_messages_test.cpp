// What a program without windows says and answers.

#include "platform/console/console_messages.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "platform/console/visible_controls.h"

namespace korv {
namespace {

Answer AnswerByDefault(const Message& message) {
  return message.DefaultAnswer;
}

TEST(ConsoleMessages, SayAnAdditionBelowTheText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce, AnswerByDefault);
  messages.Show({.Text = "Two\nlines", .Title = "Title", .Addition = "and\none more"});
  EXPECT_EQ(stream.str(), "korv-count: Two\nlines\nand\none more\n");
}

TEST(ConsoleMessages, WriteControlCharactersOut) {
  struct Case {
    const char* Text;
    const char* Visible;
  };
  for (const Case& c : {Case{"a.txt", "a.txt"},
                        {"two\nlines\tand a tab", "two\nlines\tand a tab"},
                        {"\x1b]0;title\x07.txt", "\\x1B]0;title\\x07.txt"},
                        {"a\rb\x08\x7f", "a\\x0Db\\x08\\x7F"},
                        {"\xC2\x9B"
                         "31m",
                         "\\x9B31m"},
                        {"\xC2\xA0\xC3\xBC\xC2", "\xC2\xA0\xC3\xBC\xC2"},
                        {"a\u202Etxt.exe\u202A\u2066\u2069", "a\\u202Etxt.exe\\u202A\\u2066\\u2069"},
                        {"\u2029\u202F\u2065\u206A\u200F", "\u2029\u202F\u2065\u206A\u200F"},
                        {"\xE2\x80", "\xE2\x80"},
                        {"", ""}}) {
    EXPECT_EQ(WithVisibleControls(c.Text), c.Visible);
    std::ostringstream stream;
    ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce, AnswerByDefault);
    messages.Show({.Text = "Text", .Title = "Title", .Addition = "File: " + std::string(c.Text)});
    EXPECT_EQ(stream.str(), "korv-count: Text\nFile: " + std::string(c.Visible) + "\n");
  }
}

TEST(ConsoleMessages, AnswerQuestionsWithoutShowingThem) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce, AnswerByDefault);
  for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel})
    EXPECT_EQ(
        messages.Show({.Text = "?", .Title = "?", .Buttons = Buttons::YesNoCancel, .DefaultAnswer = answer}),
        answer);
  EXPECT_EQ(stream.str(), "");
}

TEST(ConsoleMessages, LeaveNoEmptyLinesBehindAText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce, AnswerByDefault);
  messages.Show({.Text = "One\n\ntwo\n\n", .Title = "Title", .Addition = "more"});
  messages.Show({.Text = "Three\n", .Title = "Title"});
  EXPECT_EQ(stream.str(), "korv-count: One\n\ntwo\nmore\nkorv-count: Three\n");
}

TEST(ConsoleMessages, NeverChooseAFurtherButton) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce, AnswerByDefault);
  EXPECT_EQ(messages.Show({.Text = "?", .Title = "?", .ExtraButton = "Else"}), Answer::Ok);
}

}  // namespace
}  // namespace korv
