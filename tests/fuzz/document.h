#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "sources/read/document_readers.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace korv {

/// Opens any bytes as the file of that name. What is read consists of whole lines, and its marks lie at the
/// beginnings of lines, in order; what is refused has a reason; the disk is as it was.
inline void OpenAsDocument(const std::string& name, const uint8_t* data, size_t size,
                           const DocumentChoice& choice = {
                               .Others = true, .Segments = {}, .OnlyElements = {}, .SkippedElements = {}}) {
  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  const std::string content(reinterpret_cast<const char*>(data), size);
  files.Add("/in/" + name, content);
  OpenedText opened = OpenTextSource(files, "/in/" + name, kRunThreshold);
  const DocumentReader& reader = ReaderOfFile("/in/" + name, opened.Head, {}, /*others=*/true);
  const auto text =
      reader.Open("/in/" + name, std::move(opened), {files, messages, yielder, true, {}, {}, choice});
  if (files.Content("/in/" + name) != content || !files.TemporaryIsClean() || !messages.Shown.empty())
    std::abort();
  if (!text) {
    if (text.Error().SkipReason.empty()) std::abort();
    return;
  }
  if (!text->Origin.IsDocument) return;  // Bytes that are no such document are a text.
  const std::string& lines = text->Head;
  if (!lines.empty() && lines.back() != '\n') std::abort();
  uint64_t next = 0;
  for (const TextMark& mark : text->Marks) {
    if (mark.Offset < next || mark.Offset >= lines.size()) std::abort();
    if (mark.Offset > 0 && lines[mark.Offset - 1] != '\n') std::abort();
    next = mark.Offset + 1;
  }
}

}  // namespace korv
