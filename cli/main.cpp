#include <iostream>

#include "app/texts/program_folder.h"
#include "cli/count_program.h"
#include "platform/interrupts.h"
#include "platform/process.h"

int main(int argc, char** argv) {
  using namespace korv;
  std::ios::sync_with_stdio(false);
  const StandardStreams streams;
  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
  ConsoleYielder yielder;
  const InterruptGuard interrupts(yielder);
  const SystemClock clock;
  const std::unique_ptr<CodePage> encoding = SystemCodePage();
  const std::unique_ptr<InputFile> input = OpenStandardInput(yielder);
  return KorvCount(ProgramArguments(argc, argv),
                   {.Files = *files,
                    .Yielder = yielder,
                    .Clock = clock,
                    .StandardInput = *input,
                    .Out = std::cout,
                    .Err = std::cerr,
                    .ErrIsTerminal = StandardErrorIsTerminal(),
                    .ProgramFolder = ProgramFolder(*files, ExecutablePath(argv[0])),
                    .Encoding = encoding.get(),
                    .InputPath = StandardInputPath(),
                    .OutColumns = OutputColumns(),
                    .ExpandsPatterns = !ShellExpandsPatterns()});
}
