#include "desktop/results/output_text_box.h"

#include <QPlainTextEdit>
#include <QTextCursor>

#include "desktop/toolkit/text.h"

namespace korv {
namespace {

size_t CharactersOf(std::string_view utf8) {
  size_t characters = 0;
  for (const char c : utf8) {
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++characters;
  }
  return characters;
}

}  // namespace

void OutputTextBox::Append(std::string_view text) {
  QTextCursor end(box_.document());
  end.movePosition(QTextCursor::End);
  end.insertText(ToQtLines(text));
  length_ += CharactersOf(text);
}

void OutputTextBox::Truncate(size_t characters) {
  const QString shown = box_.toPlainText();
  qsizetype kept = 0;
  size_t count = 0;
  while (kept < shown.size() && count < characters) {
    const QChar c = shown[kept];
    count += c == u'\n' ? 2 : 1;
    kept += c.isHighSurrogate() && kept + 1 < shown.size() ? 2 : 1;
  }
  box_.setPlainText(shown.left(kept));
  length_ = count;
}

void OutputTextBox::Clear() {
  box_.clear();
  length_ = 0;
}

void OutputTextBox::ShowEnd() {
  box_.moveCursor(QTextCursor::End);
  box_.ensureCursorVisible();
}

}  // namespace korv
