// Any bytes, under any extension that matters, classified in one piece and byte by byte: the facts are the
// same, agree with a scan written as plainly as can be, and nothing is lost for whoever reads on.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sources/detect/classification.h"
#include "tests/fakes/fake_files.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

double PlainShare(std::string_view scanned) {
  int count = 0;
  for (const char c : scanned)
    count += std::string_view("\n\r\f\t\b").find(c) == std::string_view::npos && c >= 0 && c < 32;
  return scanned.empty() ? 0 : count * 100.0 / static_cast<double>(scanned.size());
}

std::string ReadOn(OpenedText& source) {
  std::string all = source.Head;
  char block[512];
  for (;;) {
    const auto got = source.File->Read(block);
    Require(static_cast<bool>(got));
    if (*got == 0) return all;
    all.append(block, *got);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  static constexpr const char* kNames[] = {"/a.txt", "/a.xml", "/a.html", "/a.md", "/a.docx"};
  const std::string name = kNames[data[0] % std::size(kNames)];
  const std::string content(reinterpret_cast<const char*>(data) + 1, size - 1);
  const double threshold = data[0] & 0x80 ? kRunThreshold : kWordListThreshold;

  FakeFiles files;
  files.Add(name, content);
  OpenedText whole = OpenTextSource(files, name, threshold);
  files.ReadInPiecesOf(1);
  OpenedText pieces = OpenTextSource(files, name, threshold);
  Require(whole.Facts.Code == pieces.Facts.Code && whole.Facts.IsUtf8 == pieces.Facts.IsUtf8 &&
          whole.Head == pieces.Head && whole.Facts.AnomalyPosition == pieces.Facts.AnomalyPosition);
  Require(ReadOn(whole) == content && ReadOn(pieces) == content);

  const std::string_view scanned = std::string_view(content).substr(0, kScannedBytes);
  if (IsReadableText(whole.Facts.Code) && !whole.Facts.IsUtf8)
    Require(PlainShare(scanned) <= threshold && PlainShare(scanned) == whole.Facts.AnomalyPercent);
  if (whole.Facts.AnomalyPosition > 0)
    Require(static_cast<uint8_t>(content[static_cast<size_t>(whole.Facts.AnomalyPosition) - 1]) ==
            whole.Facts.FirstAnomalousByte);
  return 0;
}
