#include <iostream>
#include <new>

#include "app/texts/program_folder.h"
#include "base/translation.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "platform/freed_memory.h"
#include "platform/interrupts.h"
#include "platform/lack_of_memory.h"
#include "platform/process.h"

namespace {

int Count(int argc, char** argv) {
  using namespace korv;
  std::ios::sync_with_stdio(false);
  const StandardStreams streams;
  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
  ConsoleYielder yielder;
  const InterruptGuard interrupts(yielder);
  const SystemClock clock;
  const std::unique_ptr<CodePage> encoding = SystemCodePage();
  const std::filesystem::path folder = ProgramFolder(*files, ExecutablePath(argv[0]));
  UseTranslations(folder / kTranslationsName);
  const std::unique_ptr<InputFile> input = OpenStandardInput(yielder);
  return KorvCount(ProgramArguments(argc, argv), {.Files = *files,
                                                  .Yielder = yielder,
                                                  .Clock = clock,
                                                  .StandardInput = *input,
                                                  .Out = std::cout,
                                                  .Err = std::cerr,
                                                  .ErrIsTerminal = StandardErrorIsTerminal(),
                                                  .ProgramFolder = folder,
                                                  .Encoding = encoding.get(),
                                                  .InputPath = StandardInputPath(),
                                                  .OutColumns = OutputColumns(),
                                                  .ExpandsPatterns = !ShellExpandsPatterns()});
}

}  // namespace

int main(int argc, char** argv) {
  korv::EndOnLackOfMemory("korv-count", korv::kExitRefused);
  korv::GiveFreedArraysBack();
  try {
    return Count(argc, argv);
  } catch (const std::bad_alloc&) {
    korv::EndForLackOfMemory();
  }
}
