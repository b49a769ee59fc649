#include "desktop/results/contexts/contexts_model.h"

#include <QFont>
#include <array>

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"
#include "sources/places/context_text.h"

namespace korv {

namespace {

struct Heading {
  const char* Text;
  const char* Tip;
};

constexpr std::array<Heading, kContextColumns> kHeadings = {
    {{TrLater("Left"), TrLater("The words before the phrase, as the file has them")},
     {TrLater("Phrase"), TrLater("The phrase, as the file has it")},
     {TrLater("Right"), TrLater("The words behind the phrase, as the file has them")},
     {TrLater("Place"),
      TrLater("File and line of the phrase's first character. Enter shows the text there.")}}};

}  // namespace

void ContextsModel::Show(std::shared_ptr<const ContextList> list) {
  beginResetModel();
  list_ = std::move(list);
  endResetModel();
}

void ContextsModel::TextsCame() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, kContextColumns - 1));
}

std::optional<Place> ContextsModel::PlaceAt(int row) const {
  const auto at = list_->PlaceAt(static_cast<size_t>(row));
  if (!at) return std::nullopt;
  return list_->Places()[*at];
}

ContextText ContextsModel::TextAt(int row) const {
  return rows_.Text(*PlaceAt(row));
}

int ContextsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || list_ == nullptr ? 0 : static_cast<int>(list_->Rows());
}

int ContextsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kContextColumns;
}

QVariant ContextsModel::data(const QModelIndex& index, int role) const {
  const bool heading = !PlaceAt(index.row());
  const auto column = static_cast<ContextColumn>(index.column());
  switch (role) {
    case kIsHeading:
      return heading;
    case Qt::DisplayRole:
      if (!heading) return CellText(index.row(), column);
      return column == ContextColumn::Left ? HeadingText(index.row()) : QString();
    case Qt::ToolTipRole:
      return heading ? QVariant() : Tip(index.row());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(
          Qt::AlignVCenter | (column == ContextColumn::Left && !heading ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::FontRole: {
      QFont font;
      font.setBold(heading || column == ContextColumn::Phrase);
      return font;
    }
    default:
      return {};
  }
}

QVariant ContextsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const Heading& heading = kHeadings[static_cast<size_t>(section)];
  if (role == Qt::DisplayRole) return QString(Tr(heading.Text));
  if (role == Qt::ToolTipRole) return QString(Tr(heading.Tip));
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::AlignVCenter | (section == 0 ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

QString ContextsModel::HeadingText(int row) const {
  const ContextList::Heading heading = list_->HeadingAt(static_cast<size_t>(row));
  const QString name = ToQt(NameOfText(list_->Run(), heading.Source));
  if (!list_->Whole()) return name;
  return name + QStringLiteral("  (%1)").arg(ToQt(numbers_.Grouped(static_cast<int64_t>(heading.Count))));
}

QString ContextsModel::CellText(int row, ContextColumn column) const {
  const PlaceInText text = TextAt(row).Text;
  switch (column) {
    case ContextColumn::Left:
      return ToQt(text.Left);
    case ContextColumn::Phrase:
      return ToQt(WithSingleBlanks(text.Phrase));
    case ContextColumn::Right:
      return ToQt(text.Right);
    case ContextColumn::Place:
      break;
  }
  const size_t source = list_->Run().Table.Corpus().SourceAt(*PlaceAt(row));
  return ToQt(text.Number == 0 ? NameOfText(list_->Run(), source)
                               : PlaceName(list_->Run(), source, text.Number));
}

QString ContextsModel::Tip(int row) const {
  const ContextText text = TextAt(row);
  const Corpus& corpus = list_->Run().Table.Corpus();
  const std::filesystem::path& path = corpus.Sources[corpus.SourceAt(*PlaceAt(row))].Path;
  QString tip = path.empty() ? Tr("Clipboard") : ToQt(PathToText(path));
  if (text.FromFile) tip += u'\n' + ToQt(LineText(text.Text));
  return PlainTip(tip);
}

}  // namespace korv
