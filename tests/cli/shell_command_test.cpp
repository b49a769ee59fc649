#include "cli/shell_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korv {
namespace {

TEST(ShellCommand, QuotesWhatAShellWouldTakeApart) {
  struct Case {
    const char* Argument;
    const char* Quoted;
  };
  const Case cases[] = {{"a-b_c.txt", "a-b_c.txt"},
                        {"/t/x,y:z=1@%+", "/t/x,y:z=1@%+"},
                        {"", "''"},
                        {"a b", "'a b'"},
                        {"it's", "'it'\\''s'"},
                        {"$HOME", "'$HOME'"},
                        {"*", "'*'"},
                        {"a\nb", "'a\nb'"},
                        {"\u00E9", "'\u00E9'"},
                        {"~", "'~'"},
                        {"\\", "'\\'"}};
  for (const Case& c : cases)
    EXPECT_EQ(ShellCommand("korv-count", std::vector<std::string>{"x", c.Argument}),
              std::string("korv-count x ") + c.Quoted);
  EXPECT_EQ(ShellCommand("korv-count", {}), "korv-count");
}

}  // namespace
}  // namespace korv
