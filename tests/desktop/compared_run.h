#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/run/run.h"
#include "tests/app/run_world.h"

namespace korv {

/// Lines of text, each so many times.
inline std::string Lines(std::initializer_list<std::pair<const char*, int>> lines) {
  std::string text;
  for (const auto& [line, times] : lines)
    for (int k = 0; k < times; ++k) text += std::string(line) + ".\n";
  return text;
}

/// A finished run that compares two groups of files, each a file with such a text: the folders /a and /b of
/// `world`.
inline std::shared_ptr<const CountedRun> CompareIn(RunWorld& world, const std::vector<std::string>& a,
                                                   const std::vector<std::string>& b,
                                                   const ComparisonChoice& how = {}) {
  const auto add = [&](const std::string& folder, const std::vector<std::string>& texts) {
    for (size_t k = 0; k < texts.size(); ++k)
      world.Files.Add(folder + "/" + std::to_string(k + 1) + ".txt", texts[k]);
  };
  add("/a", a);
  add("/b", b);
  world.Encodings = EncodingChooser(EncodingChoice::Utf8);
  world.Request.Options.SourceKind = TextSource::Folder;
  world.Request.Options.KeepPlaces = true;
  world.Request.Rules.IgnoreShortWords = false;
  world.Request.SeveralFilesNeedOutput = false;
  world.Request.Paths = {{"/a", SourcePath::Kind::Folder}};
  world.Request.Compared = {{"/b", SourcePath::Kind::Folder}};
  world.Request.Comparison = how;
  world.Run = {};
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  return std::make_shared<CountedRun>(std::move(world.Run));
}

}  // namespace korv
