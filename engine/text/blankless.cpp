#include "engine/text/blankless.h"

#include <algorithm>
#include <span>

#include "engine/text/unicode.h"

namespace korv {

namespace {

struct Block {
  char32_t First;
  char32_t Last;
};

constexpr Block kIdeographsAndKana[] = {
    {0x3005, 0x3007},   {0x3021, 0x3029},   {0x3031, 0x3035}, {0x3038, 0x303C}, {0x3041, 0x3096},
    {0x3099, 0x309A},   {0x309D, 0x309F},   {0x30A1, 0x30FA}, {0x30FC, 0x30FF}, {0x31F0, 0x31FF},
    {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},   {0xF900, 0xFAFF}, {0xFF66, 0xFF9F}, {0x1B000, 0x1B16F},
    {0x20000, 0x2FA1F}, {0x30000, 0x323AF},
};
constexpr Block kOthers[] = {
    {0x0E01, 0x0EFF},  // Thai, Lao
    {0x1000, 0x109F},  // Burmese
    {0x1780, 0x17FF},  // Khmer
    {0xA9E0, 0xA9FF},  // Burmese
    {0xAA60, 0xAA7F},
};
constexpr unsigned char kFirstLead = 0xE0;  // Of U+0E01.

bool IsIn(std::span<const Block> blocks, char32_t character) {
  return std::ranges::any_of(blocks, [character](const Block& block) {
    return character >= block.First && character <= block.Last;
  });
}

}  // namespace

bool IsIdeographOrKana(char32_t character) {
  return IsIn(kIdeographsAndKana, character);
}

bool IsBlankless(char32_t character) {
  return character >= kOthers[0].First && (IsIdeographOrKana(character) || IsIn(kOthers, character));
}

bool BeginsBlankless(std::string_view text) {
  size_t at = 0;
  return MayHoldBlankless(text.substr(0, 1)) && IsBlankless(NextCharacter(text, at));
}

bool EndsBlankless(std::string_view text) {
  size_t at = text.size();
  while (at > 0 && (static_cast<unsigned char>(text[--at]) & 0xC0) == 0x80) {
  }
  return BeginsBlankless(text.substr(at));
}

void JoinBlankless(std::string& phrase) {
  if (!MayHoldBlankless(phrase)) return;
  for (size_t blank = phrase.find(' '); blank != std::string::npos; blank = phrase.find(' ', blank + 1)) {
    const std::string_view text = phrase;
    if (EndsBlankless(text.substr(0, blank)) && BeginsBlankless(text.substr(blank + 1)))
      phrase.erase(blank, 1);
  }
}

bool MayHoldBlankless(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) >= kFirstLead; });
}

}  // namespace korv
