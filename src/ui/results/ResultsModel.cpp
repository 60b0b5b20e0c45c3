#include "ui/results/ResultsModel.h"

#include <algorithm>

#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"
#include "ui/look/Theme.h"
#include "ui/results/CandidateText.h"

namespace broomtide::ui {
namespace {

QString countAndSize(const ResultsRows::Total& total) {
  return display::joined(
      {display::count(static_cast<std::int64_t>(total.count)), display::size(total.bytes)});
}

}  // namespace

ResultsModel::ResultsModel(AppModel& model, QObject* parent)
    : QAbstractTableModel(parent),
      model_(model),
      shown_(model.candidates()),
      rows_(model.candidates(), model.scanIssues().size()) {
  observation_ = model.observe([this](AppModel::Field field) {
    if (field == AppModel::Field::candidates) followCandidates();
  });
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.all().size());
}

int ResultsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

// A selection changes candidates in place. Otherwise there are others, or none because the screen
// is about to be left.
void ResultsModel::followCandidates() {
  const std::span<const ScanCandidate> now = model_.candidates();
  if (now.data() == shown_.data() && now.size() == shown_.size()) {
    if (rowCount() > 0)
      emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    return;
  }
  beginResetModel();
  shown_ = now;
  rows_ = ResultsRows(model_.candidates(), model_.scanIssues().size());
  endResetModel();
}

Qt::ItemFlags ResultsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  switch (row(index.row()).kind) {
    case ResultsRowKind::candidate:
      return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
             Qt::ItemNeverHasChildren;
    case ResultsRowKind::issuesHeading:
    case ResultsRowKind::issue:
      return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    case ResultsRowKind::section:
    case ResultsRowKind::details:
    case ResultsRowKind::moreIssues:
      break;
  }
  return Qt::ItemNeverHasChildren;
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ResultsRow& shown = row(index.row());
  switch (role) {
    case KindRole:
      return static_cast<int>(shown.kind);
    case ExpandedRole:
      return rows_.isExpanded(shown);
    case FirstRole:
      return isFirst(index.row());
    case LastRole:
      return isLast(index.row());
    default:
      break;
  }
  switch (shown.kind) {
    case ResultsRowKind::section:
      return sectionData(static_cast<SafetyLevel>(shown.position), role);
    case ResultsRowKind::candidate:
      return candidateData(shown, role);
    case ResultsRowKind::details:  // an index widget, which screen readers do not find
      if (role != Qt::AccessibleTextRole) return {};
      return candidatetext::accessibleDetails(model_.candidates()[shown.position]);
    case ResultsRowKind::issuesHeading:
    case ResultsRowKind::issue:
    case ResultsRowKind::moreIssues:
      return issueData(shown, role);
  }
  return {};
}

QVariant ResultsModel::sectionData(SafetyLevel level, int role) const {
  const QString title = candidatetext::safety(level);
  switch (role) {
    case Qt::DisplayRole:
      return title;
    case NoteRole:
      return countAndSize(rows_.total(level));
    case Qt::AccessibleTextRole:
      return QStringLiteral("%1, %2").arg(title, countAndSize(rows_.total(level)));
    case ToneRole:
      return static_cast<int>(toneOf(level));
    default:
      return {};
  }
}

QVariant ResultsModel::candidateData(const ResultsRow& row, int role) const {
  const ScanCandidate& candidate = model_.candidates()[row.position];
  switch (role) {
    case Qt::DisplayRole:
      return display::name(candidate.url);
    case Qt::CheckStateRole:
      return candidate.isSelected ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
      return candidatetext::accessibleText(candidate, rows_.isExpanded(row));
    case Qt::AccessibleDescriptionRole:
      return tr("Select %1").arg(display::unmarked(display::name(candidate.url)));
    case PathRole:
      return display::text(candidate.relativePath);
    case NoteRole:
      return candidatetext::note(candidate);
    case SymbolRole:
      return candidatetext::symbol(candidate.kind);
    case ToneRole:
      return static_cast<int>(toneOf(candidate.safety));
    case WarningRole:
      return display::warning(candidate.relativePath);
    case BadgeRole:
      return candidatetext::safety(candidate.safety);
    case SizeRole:
      return display::size(candidate.size);
    default:
      return {};
  }
}

QVariant ResultsModel::issueData(const ResultsRow& row, int role) const {
  if (role == ToneRole) return static_cast<int>(Tone::usuallySafe);
  const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
  if (row.kind == ResultsRowKind::issuesHeading) {
    if (role == SymbolRole) return QStringLiteral("exclamationmark.triangle");
    if (!isText) return {};
    return enginetext::sentence(
        {.pattern = messages::itemsSkipped, .values = {countValue(model_.scanIssues().size())}});
  }
  if (row.kind == ResultsRowKind::moreIssues)
    return isText ? tr("And %n more…", nullptr, static_cast<int>(row.position)) : QVariant();

  const ScanIssue& issue = model_.scanIssues()[row.position];
  if (role == Qt::AccessibleTextRole)
    return display::unmarked(display::text(issue.path) + ", " +
                             enginetext::statement(issue.message));
  if (role == Qt::DisplayRole) return display::text(issue.path);
  if (role == NoteRole) return enginetext::statement(issue.message);
  return {};
}

bool ResultsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid()) return false;
  const ScanCandidate* found = candidate(index);
  if (role == Qt::CheckStateRole && found != nullptr) {
    const bool isSelected = value.toInt() == Qt::Checked;
    if (isSelected != found->isSelected) model_.toggleCandidate(std::string(found->id()));
    return true;
  }
  if (role != ExpandedRole || !isExpandable(row(index.row()).kind)) return false;
  setExpanded(index.row(), value.toBool());
  return true;
}

void ResultsModel::setExpanded(int number, bool isExpanded) {
  const ResultsRow changed = row(number);
  if (rows_.isExpanded(changed) == isExpanded) return;
  const std::vector<ResultsRow> below = rows_.rowsBelow(changed);
  const auto count = static_cast<int>(below.size());
  const auto at = static_cast<std::size_t>(number) + 1;
  if (isExpanded) {
    beginInsertRows({}, number + 1, number + count);
    rows_.insert(at, below);
    rows_.setExpanded(changed, isExpanded);
    endInsertRows();
  } else {
    beginRemoveRows({}, number + 1, number + count);
    rows_.remove(at, below.size());
    rows_.setExpanded(changed, isExpanded);
    endRemoveRows();
  }
  emit dataChanged(index(number, 0), index(number, 0), {ExpandedRole, Qt::AccessibleTextRole});
}

void ResultsModel::setSortOrder(SortOrder order) {
  beginResetModel();
  rows_.sort(order);
  endResetModel();
}

void ResultsModel::setFilter(const QString& text) {
  beginResetModel();
  rows_.filter(CandidateFilter(text));
  endResetModel();
}

int ResultsModel::numberOf(const ResultsRow& row) const {
  const auto found = std::ranges::find(rows_.all(), row);
  return found == rows_.all().end() ? -1 : static_cast<int>(found - rows_.all().begin());
}

const ScanCandidate* ResultsModel::candidate(const QModelIndex& index) const {
  if (!index.isValid() || row(index.row()).kind != ResultsRowKind::candidate) return nullptr;
  return &model_.candidates()[row(index.row()).position];
}

// A card holds the candidates of one level, or the issues.
bool ResultsModel::isFirst(int number) const {
  const ResultsRowKind kind = row(number).kind;
  if (kind == ResultsRowKind::section || kind == ResultsRowKind::issuesHeading) return true;
  return row(number - 1).kind == ResultsRowKind::section;
}

bool ResultsModel::isLast(int number) const {
  if (number + 1 == rowCount()) return true;
  const ResultsRowKind next = row(number + 1).kind;
  return next == ResultsRowKind::section || next == ResultsRowKind::issuesHeading;
}

}  // namespace broomtide::ui
