// Any bytes as a page of HTML, PHP or XML: what is shown is well-formed, has no white space to collapse, and
// leads to places in the page, in the order of the text.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/utf8.h"
#include "sources/documents/html_text.h"
#include "sources/documents/php_page.h"
#include "sources/documents/xml_shown_text.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

class Bytes final : public ByteSource {
 public:
  explicit Bytes(std::string_view text) : text_(text) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override {
    const size_t size = std::min(buffer.size(), text_.size());
    text_.copy(buffer.data(), size);
    text_.remove_prefix(size);
    return size;
  }

 private:
  std::string_view text_;
};

void RequireSound(const ShownText& shown, std::string_view page) {
  Require(MendedUtf8(shown.Text) == shown.Text);
  for (const char* const none : {"  ", " \n", "\n ", "\n\n\n", "\t", "\r"})
    Require(shown.Text.find(none) == std::string::npos);
  const auto lines = static_cast<size_t>(std::count(page.begin(), page.end(), '\n')) + 1;
  uint64_t last = 0;
  for (const TextMark& mark : shown.Marks) {
    Require(mark.Offset >= last && mark.Offset < shown.Text.size());
    Require(mark.Number >= 1 && mark.Number <= lines && mark.Column <= page.size() + 1);
    last = mark.Offset;
  }
  Require(shown.Text.empty() || (!shown.Marks.empty() && shown.Marks.front().Offset == 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  NoYielder yielder;
  if (data[0] % 3 == 2) {
    Bytes source(bytes);
    XmlShownText text;
    if (!WalkXml(source, text, yielder)) RequireSound(text.Take(), bytes);
    return 0;
  }
  std::string page = MendedUtf8(bytes);
  if (data[0] % 3 == 1) {
    const std::string without = WithoutPrograms(page);
    Require(without.size() == page.size());
    // What stands around a program may look like one when the program is gone, so that only line ends are
    // sure.
    Require(std::count(without.begin(), without.end(), '\n') == std::count(page.begin(), page.end(), '\n'));
    page = without;
  }
  if (!ReadsHtml()) return 0;
  const auto shown = HtmlText(page, yielder);
  if (shown) RequireSound(*shown, page);
  return 0;
}
