#include "sources/scan/markup.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korv {
namespace {

std::string WithEntitiesReplaced(std::string text) {
  ReplaceNamedEntities(text);
  return text;
}

struct Replacement {
  std::string_view From;
  std::string_view To;
};

TEST(ReplaceNamedEntities, KnowsEveryEntityOfItsTable) {
  constexpr Replacement kTable[] = {
      {"&lsquo;", "'"},  {"&rsquo;", "'"},  {"&ldquo;", "'"},  {"&rdquo;", "'"},  {"&#8220;", "'"},
      {"&#8221;", "'"},  {"&copy;", "©"},   {"&amp;", "&"},    {"&nbsp;", " "},   {"&#160;", " "},
      {"&#8212;", "—"},  {"&#8211;", "-"},  {"&AElig;", "Æ"},  {"&Aacute;", "Á"}, {"&Acirc;", "Â"},
      {"&Agrave;", "À"}, {"&Aring;", "Å"},  {"&Atilde;", "Ã"}, {"&Auml;", "Ä"},   {"&Ccedil;", "Ç"},
      {"&ETH;", "Ð"},    {"&Eacute;", "É"}, {"&Ecirc;", "Ê"},  {"&Egrave;", "È"}, {"&Euml;", "Ë"},
      {"&Iacute;", "Í"}, {"&Icirc;", "Î"},  {"&Igrave;", "Ì"}, {"&Iuml;", "Ï"},   {"&Ntilde;", "Ñ"},
      {"&Oacute;", "Ó"}, {"&Ocirc;", "Ô"},  {"&Ograve;", "Ò"}, {"&Oslash;", "Ø"}, {"&Otilde;", "Õ"},
      {"&Ouml;", "Ö"},   {"&THORN;", "Þ"},  {"&Uacute;", "Ú"}, {"&Ucirc;", "Û"},  {"&Ugrave;", "Ù"},
      {"&Uuml;", "Ü"},   {"&Yacute;", "Ý"}, {"&aacute;", "á"}, {"&acirc;", "â"},  {"&aelig;", "æ"},
      {"&agrave;", "à"}, {"&aring;", "å"},  {"&atilde;", "ã"}, {"&auml;", "ä"},   {"&ccedil;", "ç"},
      {"&eacute;", "é"}, {"&ecirc;", "ê"},  {"&egrave;", "è"}, {"&eth;", "ð"},    {"&euml;", "ë"},
      {"&iacute;", "í"}, {"&icirc;", "î"},  {"&igrave;", "ì"}, {"&iuml;", "ï"},   {"&ntilde;", "ñ"},
      {"&oacute;", "ó"}, {"&ocirc;", "ô"},  {"&ograve;", "ò"}, {"&oslash;", "ø"}, {"&otilde;", "õ"},
      {"&ouml;", "ö"},   {"&szlig;", "ß"},  {"&thorn;", "þ"},  {"&uacute;", "ú"}, {"&ucirc;", "û"},
      {"&ugrave;", "ù"}, {"&uuml;", "ü"},   {"&yacute;", "ý"}, {"&yuml;", "ÿ"},   {"&quot;", "\""}};
  EXPECT_EQ(std::size(kTable), 74U + 1U);
  for (const Replacement& row : kTable) EXPECT_EQ(WithEntitiesReplaced(std::string(row.From)), row.To);
}

TEST(ReplaceNamedEntities, ReplacesWithinALine) {
  constexpr Replacement kTable[] = {
      {"Tom&rsquo;s", "Tom's"},
      {"&ldquo;Hi&rdquo;", "'Hi'"},
      {"caf&eacute; &amp; bar", "café & bar"},
      {"&unknown; &amp;", "&unknown; &"},
      {"a & b", "a & b"},
      {"&eacute; & b", "é & b"},
      {"&amp;lt;", "&lt;"},
      {"&amp;eacute;", "&eacute;"},
      {"&EACUTE;", "&EACUTE;"},
      {"&#233;", "&#233;"},
      {"a & b &eacute; c &eacute;", "a & b &eacute; c é"},  // One unknown entity up to the first semicolon.
      {"a & &nbsp; b", "a   b"},                            // Stands in the table across two entries.
      {"&;", "&;"},
      {";&", ";&"},
      {"", ""},
  };
  for (const Replacement& row : kTable) EXPECT_EQ(WithEntitiesReplaced(std::string(row.From)), row.To);
}

TEST(ReplaceDoubleHyphens, ReplacesThemByTwoBlanks) {
  constexpr Replacement kTable[] = {
      {"well--known", "well  known"},
      {"a--b", "a--b"},    // Second character of the line.
      {"--ab", "--ab"},    // First.
      {"éé--b", "éé  b"},  // Characters count, not bytes.
      {"é--b", "é--b"},
      {"\U0001F600\U0001F600--b", "\U0001F600\U0001F600  b"},
      {"----ab", "--  ab"},
      {"ab---c", "ab  -c"},
      {"ab----c", "ab    c"},
      {"ab-c", "ab-c"},
      {"<!-- a -->", "<!-- a -->"},
      {"ab<!---->", "ab<!---->"},
      {"ab--->", "ab  ->"},  // The first two of three are not those of the closer.
      {"ab--", "ab  "},
      {"", ""},
  };
  for (const Replacement& row : kTable) EXPECT_EQ(ReplaceDoubleHyphens(row.From), row.To);
}

TEST(ReplaceDoubleHyphens, SparesNothingWhereALineGoesOn) {
  constexpr std::string_view kExpected[] = {"--a  ", "--a  ", "  a  "};
  for (const size_t before : {0, 1, 2}) {
    std::string text = "--a--";
    ReplaceDoubleHyphensInPlace(text, before);
    EXPECT_EQ(text, kExpected[before]);
  }
}

TEST(EntityLength, IsThePlaceOfTheSemicolon) {
  struct Row {
    std::string_view Text;
    int Length;
  };
  constexpr Row kTable[] = {
      {"", 0},
      {"&a;", 0},  // Fewer than four characters.
      {"&a; ", 3},
      {"&é;b", 3},  // Characters count, not bytes.
      {"&é;", 0},
      {"&amp;", 5},
      {"&amp; more;", 5},
      {"&#23", 1},
      {"&#233;", 1},
      {"&# x y", 1},
      {"amp;", 0},
      {"&amp", 0},
      {"&a mp;", 0},
      {"&1mp;", 0},
      {"&;ab", 0},
      {"&  ab;", 0},
      {"&a2345678901234567890;", 0},  // Semicolon at 22 ...
      {"&a23456789012345678;", 20},   // ... at 20, the last that counts ...
      {"&a234567890123456789;", 0},   // ... at 21.
  };
  for (const Row& row : kTable) EXPECT_EQ(EntityLength(row.Text), row.Length) << row.Text;
}

TEST(IsNegativeContractionStem, TakesStemsAndTheirTails) {
  for (const std::string_view word :
       {"aren", "couldn", "didn", "doesn", "hadn", "hasn", "isn", "shouldn", "wasn", "weren", "wouldn",
        "WASN", "Isn", "en", "ren", "n", "ouldn", ""}) {
    EXPECT_TRUE(IsNegativeContractionStem(word)) << word;
  }
  for (const std::string_view word : {"do", "don", "ca", "are", "was", "xisn", "isnx", "aren couldn", "é"}) {
    EXPECT_EQ(IsNegativeContractionStem(word), word == "aren couldn") << word;
  }
}

}  // namespace
}  // namespace korv
