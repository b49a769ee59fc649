// Any bytes on standard input: refused with one message or counted, and in which pieces they come makes no
// difference. Well-formed text is counted as the same text on the clipboard is.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/text/unicode.h"
#include "tests/app/run_world.h"
#include "tests/sources/bitten_file.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

struct Seen {
  RunEnd End = RunEnd::Refused;
  size_t Messages = 0;
  std::string Listed;
  uint64_t Words = 0;
  uint64_t Dropped = 0;
  bool operator==(const Seen&) const = default;
};

Seen Count(RunWorld& world) {
  world.UseLengths(2, 3, 1);
  Seen seen;
  seen.End = world.Count();
  seen.Messages = world.Messages.Shown.size();
  if (seen.End != RunEnd::Counted) return seen;
  seen.Listed = world.Listed();
  seen.Words = world.Run.Facts.Words.Taken;
  for (const uint64_t dropped : world.Run.Facts.Words.DroppedBy) seen.Dropped += dropped;
  return seen;
}

Seen CountStream(std::string_view bytes, EncodingChoice choice, size_t bite, bool keep) {
  BittenFile stream(bytes, bite);
  RunWorld world;
  world.UseClipboard("");
  world.Request.Stream = &stream;
  world.Request.StreamEncoding = choice;
  world.Request.Options.KeepPlaces = world.Request.KeepText = keep;
  return Count(world);
}

bool IsWellFormed(std::string_view text) {
  std::string again;
  for (size_t at = 0; at < text.size();) AppendCharacter(NextCharacter(text, at), again);
  return again == text && !text.starts_with("\xEF\xBB\xBF");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 4096;
  if (size == 0 || size > kMostBytes) return 0;
  constexpr EncodingChoice kChoices[] = {EncodingChoice::Auto, EncodingChoice::Utf8, EncodingChoice::Ansi};
  const EncodingChoice choice = kChoices[data[0] % std::size(kChoices)];
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const Seen whole = CountStream(bytes, choice, bytes.size() + 1, false);
  Require(whole.End == RunEnd::Counted || (whole.End == RunEnd::Refused && whole.Messages == 1));
  Require(CountStream(bytes, choice, 1 + data[0] / 3 % 7, true) == whole);
  if (choice != EncodingChoice::Utf8 || !IsWellFormed(bytes)) return 0;
  RunWorld world;
  world.UseClipboard(std::string(bytes));
  Require(Count(world) == whole);
  return 0;
}
