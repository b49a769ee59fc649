#include "desktop/results/table/row_copier.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <utility>

#include "base/translation.h"
#include "desktop/questions.h"

namespace korv {

void RowCopier::Copy(std::shared_ptr<const TableSource> source, CopyRequest request) {
  if (source == nullptr || request.Ranges.empty() || !Confirm(request)) return;
  job_.Start(
      [source = std::move(source), request = std::move(request), &desktop = desktop_](NewestJob::Turn& turn) {
        const auto copied =
            std::make_shared<CopiedRows>(CopyRows(*source, request, desktop.Numbers, turn.Yielder()));
        turn.Tell([copied] {
          auto* data = new QMimeData;
          data->setText(copied->Text);
          data->setHtml(copied->Html);
          QGuiApplication::clipboard()->setMimeData(data);
        });
      });
}

bool RowCopier::Confirm(CopyRequest& request) {
  const uint64_t rows = CountRows(request.Ranges);
  if (rows <= kMostUnasked) return true;
  const auto grouped = [&](uint64_t number) {
    return desktop_.Numbers.Grouped(static_cast<int64_t>(number));
  };
  const Answer answer = desktop_.Messages.Show(
      {.Text = Fill(Tr("Do you wish to copy %1 rows?\nOther programs may not have room for so many."),
                    {grouped(rows)}),
       .Title = Tr("Copy rows"),
       .Icon = Icon::Question,
       .Buttons = Buttons::YesNoCancel,
       .DefaultAnswer = Answer::No,
       .Question = questions::kCopyManyRows,
       .ExtraButton = ExportWanted ? Tr("Export...") : "",
       .YesButton = Tr("Copy all"),
       .NoButton = Fill(Tr("Copy the first %1"), {grouped(kMostUnasked)})});
  if (answer == Answer::Extra && ExportWanted) ExportWanted();
  if (answer == Answer::No) request.Ranges = FirstRowsOf(request.Ranges, kMostUnasked);
  return answer == Answer::Yes || answer == Answer::No;
}

}  // namespace korv
