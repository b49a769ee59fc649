#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include <stdexcept>
#include <string>

#include "engine/text/segmenter.h"

namespace korv {

namespace {

void Check(UErrorCode status, const char* what) {
  if (U_FAILURE(status)) throw std::runtime_error(std::string(what) + ": " + u_errorName(status));
}

}  // namespace

struct Segmenter::Iterator {
  Iterator() {
    UErrorCode status = U_ZERO_ERROR;
    // The empty locale is the root: dictionaries do not depend on it.
    Breaks = ubrk_open(UBRK_WORD, "", nullptr, 0, &status);
    Check(status, "ubrk_open");
  }
  ~Iterator() {
    ubrk_close(Breaks);
    utext_close(&Text);
  }
  Iterator(const Iterator&) = delete;
  Iterator& operator=(const Iterator&) = delete;

  UBreakIterator* Breaks = nullptr;
  UText Text = UTEXT_INITIALIZER;
};

Segmenter::Segmenter() = default;
Segmenter::~Segmenter() = default;

bool Segmenter::IsThere() {
  return true;
}

void Segmenter::Cut(std::string_view text, std::vector<Piece>& pieces) {
  pieces.clear();
  if (text.empty()) return;
  if (iterator_ == nullptr) iterator_ = std::make_unique<Iterator>();
  UErrorCode status = U_ZERO_ERROR;
  utext_openUTF8(&iterator_->Text, text.data(), static_cast<int64_t>(text.size()), &status);
  ubrk_setUText(iterator_->Breaks, &iterator_->Text, &status);
  Check(status, "ubrk_setUText");
  int32_t begin = ubrk_first(iterator_->Breaks);
  for (int32_t end = ubrk_next(iterator_->Breaks); end != UBRK_DONE; end = ubrk_next(iterator_->Breaks)) {
    if (ubrk_getRuleStatus(iterator_->Breaks) >= UBRK_WORD_NONE_LIMIT)
      pieces.push_back({static_cast<size_t>(begin), static_cast<size_t>(end)});
    begin = end;
  }
}

}  // namespace korv
