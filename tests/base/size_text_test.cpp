#include "base/size_text.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(FormatByteCount, HasTwoDecimalsFromOneKiloOn) {
  struct Row {
    uint64_t Bytes;
    const char* Text;
  };
  for (const Row& row : {Row{0, "0 bytes"}, Row{1023, "1023 bytes"}, Row{1024, "1.00 Kb"},
                         Row{1536, "1.50 Kb"}, Row{1048575, "1,024.00 Kb"}, Row{1048576, "1.00 Mb"},
                         Row{1294540, "1.23 Mb"}, Row{5368709120, "5,120.00 Mb"}}) {
    EXPECT_EQ(FormatByteCount(row.Bytes, NumberFormat()), row.Text);
  }
}

TEST(FormatSize, HasOneDecimalFromAKilobyteOn) {
  constexpr uint64_t kKb = 1024;
  const std::pair<uint64_t, const char*> cases[] = {
      {0, "0 bytes"},
      {1, "1 bytes"},
      {1023, "1023 bytes"},
      {kKb, "1.0 Kb"},
      {235725, "230.2 Kb"},
      {kKb * kKb - 1, "1024.0 Kb"},
      {kKb * kKb, "1.0 Mb"},
      {5 * kKb * kKb / 2, "2.5 Mb"},
      {kKb * kKb * kKb, "1.0 Gb"},
      {2048 * kKb * kKb * kKb, "2048.0 Gb"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(FormatSize(bytes, NumberFormat()), text);
}

TEST(FormatSize, DecimalPointIsTheLocales) {
  EXPECT_EQ(FormatSize(1536, NumberFormat{.DecimalPoint = ","}), "1,5 Kb");
}

}  // namespace
}  // namespace korv
