#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/run/run_observer.h"

namespace korv {

/// An observer that writes down what it is told, and has an output file chosen.
class FakeObserver final : public RunObserver {
 public:
  void Status(const std::string& text) override { Told.push_back("status " + text); }
  void Notice(const std::string& text) override { Told.push_back("notice " + text); }
  void ClearOutput() override { Told.emplace_back("clear"); }
  void InputFile(const std::string& path) override { Told.push_back("file " + path); }
  void Sizes(const std::string& fileSize, const std::string& textSize) override {
    Told.push_back("sizes " + fileSize + "," + textSize);
  }
  void FileKind(const std::string& text) override { Told.push_back("kind " + text); }
  void TextProgress(const std::string& bar) override { Told.push_back("bar " + bar); }
  std::optional<std::string> ChooseOutputFile() override {
    Told.emplace_back("choose");
    return "out.txt";
  }

  std::vector<std::string> Told;
};

}  // namespace korv
