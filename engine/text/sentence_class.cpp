#include "engine/text/sentence_class.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>

namespace korv {

namespace {

struct Range {
  char32_t First;
  char32_t Last;
  SentenceClass Class;
};

/// Characters whose class does not follow from their category.
constexpr Range kExceptions[] = {
    {0x0009, 0x0009, SentenceClass::Sp},        {0x000A, 0x000A, SentenceClass::Sep},
    {0x000B, 0x000C, SentenceClass::Sp},        {0x000D, 0x000D, SentenceClass::Sep},
    {0x0021, 0x0021, SentenceClass::STerm},     {0x0022, 0x0022, SentenceClass::Close},
    {0x0027, 0x0027, SentenceClass::Close},     {0x002C, 0x002D, SentenceClass::SContinue},
    {0x002E, 0x002E, SentenceClass::ATerm},     {0x003A, 0x003A, SentenceClass::SContinue},
    {0x003F, 0x003F, SentenceClass::STerm},     {0x0085, 0x0085, SentenceClass::Sep},
    {0x00AA, 0x00AA, SentenceClass::Lower},     {0x00BA, 0x00BA, SentenceClass::Lower},
    {0x02B0, 0x02B8, SentenceClass::Lower},     {0x02C0, 0x02C1, SentenceClass::Lower},
    {0x02E0, 0x02E4, SentenceClass::Lower},     {0x037A, 0x037A, SentenceClass::Lower},
    {0x055D, 0x055D, SentenceClass::SContinue}, {0x0589, 0x0589, SentenceClass::STerm},
    {0x05F3, 0x05F3, SentenceClass::OLetter},   {0x060C, 0x060D, SentenceClass::SContinue},
    {0x061D, 0x061F, SentenceClass::STerm},     {0x066B, 0x066C, SentenceClass::Numeric},
    {0x06D4, 0x06D4, SentenceClass::STerm},     {0x0700, 0x0702, SentenceClass::STerm},
    {0x07F8, 0x07F8, SentenceClass::SContinue}, {0x07F9, 0x07F9, SentenceClass::STerm},
    {0x0837, 0x0837, SentenceClass::STerm},     {0x0839, 0x0839, SentenceClass::STerm},
    {0x083D, 0x083E, SentenceClass::STerm},     {0x0964, 0x0965, SentenceClass::STerm},
    {0x104A, 0x104B, SentenceClass::STerm},     {0x10D0, 0x10FA, SentenceClass::OLetter},
    {0x10FC, 0x10FC, SentenceClass::Lower},     {0x10FD, 0x10FF, SentenceClass::OLetter},
    {0x1362, 0x1362, SentenceClass::STerm},     {0x1367, 0x1368, SentenceClass::STerm},
    {0x166E, 0x166E, SentenceClass::STerm},     {0x1735, 0x1736, SentenceClass::STerm},
    {0x1802, 0x1802, SentenceClass::SContinue}, {0x1803, 0x1803, SentenceClass::STerm},
    {0x1808, 0x1808, SentenceClass::SContinue}, {0x1809, 0x1809, SentenceClass::STerm},
    {0x1944, 0x1945, SentenceClass::STerm},     {0x1AA8, 0x1AAB, SentenceClass::STerm},
    {0x1B5A, 0x1B5B, SentenceClass::STerm},     {0x1B5E, 0x1B5F, SentenceClass::STerm},
    {0x1B7D, 0x1B7E, SentenceClass::STerm},     {0x1C3B, 0x1C3C, SentenceClass::STerm},
    {0x1C7E, 0x1C7F, SentenceClass::STerm},     {0x1C90, 0x1CBA, SentenceClass::OLetter},
    {0x1CBD, 0x1CBF, SentenceClass::OLetter},   {0x1D2C, 0x1D6A, SentenceClass::Lower},
    {0x1D78, 0x1D78, SentenceClass::Lower},     {0x1D9B, 0x1DBF, SentenceClass::Lower},
    {0x200C, 0x200D, SentenceClass::Extend},    {0x2013, 0x2014, SentenceClass::SContinue},
    {0x2024, 0x2024, SentenceClass::ATerm},     {0x2028, 0x2029, SentenceClass::Sep},
    {0x203C, 0x203D, SentenceClass::STerm},     {0x2047, 0x2049, SentenceClass::STerm},
    {0x2071, 0x2071, SentenceClass::Lower},     {0x207F, 0x207F, SentenceClass::Lower},
    {0x2090, 0x209C, SentenceClass::Lower},     {0x2160, 0x216F, SentenceClass::Upper},
    {0x2170, 0x217F, SentenceClass::Lower},     {0x24B6, 0x24CF, SentenceClass::Upper},
    {0x24D0, 0x24E9, SentenceClass::Lower},     {0x275B, 0x2760, SentenceClass::Close},
    {0x2C7C, 0x2C7D, SentenceClass::Lower},     {0x2E00, 0x2E01, SentenceClass::Close},
    {0x2E06, 0x2E08, SentenceClass::Close},     {0x2E0B, 0x2E0B, SentenceClass::Close},
    {0x2E2E, 0x2E2E, SentenceClass::STerm},     {0x2E3C, 0x2E3C, SentenceClass::STerm},
    {0x2E53, 0x2E54, SentenceClass::STerm},     {0x3001, 0x3001, SentenceClass::SContinue},
    {0x3002, 0x3002, SentenceClass::STerm},     {0xA4FF, 0xA4FF, SentenceClass::STerm},
    {0xA60E, 0xA60F, SentenceClass::STerm},     {0xA69C, 0xA69D, SentenceClass::Lower},
    {0xA6F3, 0xA6F3, SentenceClass::STerm},     {0xA6F7, 0xA6F7, SentenceClass::STerm},
    {0xA770, 0xA770, SentenceClass::Lower},     {0xA7F2, 0xA7F4, SentenceClass::Lower},
    {0xA7F8, 0xA7F9, SentenceClass::Lower},     {0xA876, 0xA877, SentenceClass::STerm},
    {0xA8CE, 0xA8CF, SentenceClass::STerm},     {0xA92F, 0xA92F, SentenceClass::STerm},
    {0xA9C8, 0xA9C9, SentenceClass::STerm},     {0xAA5D, 0xAA5F, SentenceClass::STerm},
    {0xAAF0, 0xAAF1, SentenceClass::STerm},     {0xAB5C, 0xAB5F, SentenceClass::Lower},
    {0xAB69, 0xAB69, SentenceClass::Lower},     {0xABEB, 0xABEB, SentenceClass::STerm},
    {0xFE10, 0xFE11, SentenceClass::SContinue}, {0xFE13, 0xFE13, SentenceClass::SContinue},
    {0xFE31, 0xFE32, SentenceClass::SContinue}, {0xFE50, 0xFE51, SentenceClass::SContinue},
    {0xFE52, 0xFE52, SentenceClass::ATerm},     {0xFE55, 0xFE55, SentenceClass::SContinue},
    {0xFE56, 0xFE57, SentenceClass::STerm},     {0xFE58, 0xFE58, SentenceClass::SContinue},
    {0xFE63, 0xFE63, SentenceClass::SContinue}, {0xFF01, 0xFF01, SentenceClass::STerm},
    {0xFF0C, 0xFF0D, SentenceClass::SContinue}, {0xFF0E, 0xFF0E, SentenceClass::ATerm},
    {0xFF1A, 0xFF1A, SentenceClass::SContinue}, {0xFF1F, 0xFF1F, SentenceClass::STerm},
    {0xFF61, 0xFF61, SentenceClass::STerm},     {0xFF64, 0xFF64, SentenceClass::SContinue},
    {0xFF9E, 0xFF9F, SentenceClass::Extend},    {0x10780, 0x10780, SentenceClass::Lower},
    {0x10783, 0x10785, SentenceClass::Lower},   {0x10787, 0x107B0, SentenceClass::Lower},
    {0x107B2, 0x107BA, SentenceClass::Lower},   {0x10A56, 0x10A57, SentenceClass::STerm},
    {0x10F55, 0x10F59, SentenceClass::STerm},   {0x10F86, 0x10F89, SentenceClass::STerm},
    {0x11047, 0x11048, SentenceClass::STerm},   {0x110BE, 0x110C1, SentenceClass::STerm},
    {0x11141, 0x11143, SentenceClass::STerm},   {0x111C5, 0x111C6, SentenceClass::STerm},
    {0x111CD, 0x111CD, SentenceClass::STerm},   {0x111DE, 0x111DF, SentenceClass::STerm},
    {0x11238, 0x11239, SentenceClass::STerm},   {0x1123B, 0x1123C, SentenceClass::STerm},
    {0x112A9, 0x112A9, SentenceClass::STerm},   {0x1144B, 0x1144C, SentenceClass::STerm},
    {0x115C2, 0x115C3, SentenceClass::STerm},   {0x115C9, 0x115D7, SentenceClass::STerm},
    {0x11641, 0x11642, SentenceClass::STerm},   {0x1173C, 0x1173E, SentenceClass::STerm},
    {0x11944, 0x11944, SentenceClass::STerm},   {0x11946, 0x11946, SentenceClass::STerm},
    {0x11A42, 0x11A43, SentenceClass::STerm},   {0x11A9B, 0x11A9C, SentenceClass::STerm},
    {0x11C41, 0x11C42, SentenceClass::STerm},   {0x11EF7, 0x11EF8, SentenceClass::STerm},
    {0x11F43, 0x11F44, SentenceClass::STerm},   {0x16A6E, 0x16A6F, SentenceClass::STerm},
    {0x16AF5, 0x16AF5, SentenceClass::STerm},   {0x16B37, 0x16B38, SentenceClass::STerm},
    {0x16B44, 0x16B44, SentenceClass::STerm},   {0x16E98, 0x16E98, SentenceClass::STerm},
    {0x1BC9F, 0x1BC9F, SentenceClass::STerm},   {0x1DA88, 0x1DA88, SentenceClass::STerm},
    {0x1E030, 0x1E06D, SentenceClass::Lower},   {0x1F130, 0x1F149, SentenceClass::Upper},
    {0x1F150, 0x1F169, SentenceClass::Upper},   {0x1F170, 0x1F189, SentenceClass::Upper},
    {0x1F676, 0x1F678, SentenceClass::Close},   {0xE0020, 0xE007F, SentenceClass::Extend},
};

SentenceClass ClassOfCategory(char32_t character) {
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LT:
      return SentenceClass::Upper;
    case UTF8PROC_CATEGORY_LL:
      return SentenceClass::Lower;
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_NL:
      return SentenceClass::OLetter;
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
      return SentenceClass::Extend;
    case UTF8PROC_CATEGORY_CF:
      return SentenceClass::Format;
    case UTF8PROC_CATEGORY_ND:
      return SentenceClass::Numeric;
    case UTF8PROC_CATEGORY_PS:
    case UTF8PROC_CATEGORY_PE:
    case UTF8PROC_CATEGORY_PI:
    case UTF8PROC_CATEGORY_PF:
      return SentenceClass::Close;
    case UTF8PROC_CATEGORY_ZS:
      return SentenceClass::Sp;
    default:
      return SentenceClass::Other;
  }
}

SentenceClass LookUp(char32_t character) {
  const auto* const range = std::lower_bound(std::begin(kExceptions), std::end(kExceptions), character,
                                             [](const Range& of, char32_t c) { return of.Last < c; });
  const bool isException = range != std::end(kExceptions) && range->First <= character;
  return isException ? range->Class : ClassOfCategory(character);
}

constexpr char32_t kPlaneEnd = 0x10000;
using Plane = std::array<SentenceClass, kPlaneEnd>;

std::unique_ptr<const Plane> MakePlane() {
  auto plane = std::make_unique<Plane>();
  for (char32_t c = 0; c < kPlaneEnd; ++c) (*plane)[c] = LookUp(c);
  return plane;
}

}  // namespace

SentenceClass SentenceClassOf(char32_t character) {
  static const std::unique_ptr<const Plane> kPlane = MakePlane();
  return character < kPlaneEnd ? (*kPlane)[character] : LookUp(character);
}

}  // namespace korv
