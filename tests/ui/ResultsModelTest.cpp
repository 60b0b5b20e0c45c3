#include "ui/results/ResultsModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCollator>
#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "ui/Candidates.h"
#include "ui/Person.h"
#include "ui/TestWindow.h"

namespace broomtide {
namespace {

using test::makeCandidate;
using test::resultOf;
using ui::ResultsModel;
using ui::ResultsRowKind;
using enum SafetyLevel;

// What the list shows, one text for each row.
QStringList shown(const ResultsModel& model) {
  QStringList rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex index = model.index(row, 0);
    const auto kind = static_cast<ResultsRowKind>(index.data(ui::KindRole).toInt());
    const bool isSelected = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (kind == ResultsRowKind::section) {
      rows << "# " + index.data().toString();
    } else if (kind == ResultsRowKind::candidate) {
      rows << index.data(ui::PathRole).toString() + (isSelected ? " *" : "");
    } else {
      rows << (kind == ResultsRowKind::details ? "details" : index.data().toString());
    }
  }
  return rows;
}

TEST(ResultsModel, SaysAllThatARowShows) {
  test::TestWindow test;
  ScanCandidate file = makeCandidate("old/set\nup.dmg", 1'500'000, usuallySafe);
  file.kind = CandidateKind::file;
  file.gitStatus = GitItemStatus::unavailable;
  file.confidence = DetectionConfidence::medium;
  test.scan(resultOf({makeCandidate("web/.next", 1'200'000'000), file}));
  const ResultsModel model(test.model());
  const struct {
    int row;
    int role;
    QString text;
  } table[] = {
      {1, Qt::DisplayRole, ".next"},
      {1, ui::NoteRole, "Build Output · High confidence · Ignored by Git · Unknown date"},
      {1, ui::SymbolRole, "folder.fill"},
      {1, ui::SizeRole, "1.2 GB"},
      {1, Qt::AccessibleTextRole,
       ".next, Build Output, Safe to Clean, 1.2 GB, not selected, High confidence, Ignored by Git, "
       "Unknown date, web/.next, details hidden"},
      {1, Qt::AccessibleDescriptionRole, "Select .next"},
      {3, Qt::DisplayRole, "set\\nup.dmg"},
      {3, ui::NoteRole, "Build Output · Medium confidence · Git status unavailable · Unknown date"},
      {3, ui::SymbolRole, "doc.fill"},
      {3, ui::BadgeRole, "Usually Safe"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(model.index(row.row, 0).data(row.role).toString(), row.text);
  }
}

TEST(ResultsModel, FilteringNeverChangesTheSelection) {
  test::TestWindow test;
  std::vector<ScanCandidate> candidates{makeCandidate("web/node_modules"),
                                        makeCandidate("api/Größe"), makeCandidate("api/target")};
  candidates[2].category = "Compiler Output";
  for (ScanCandidate& candidate : candidates) candidate.isSelected = true;
  test.scan(resultOf(candidates));
  ResultsModel model(test.model());
  const struct {
    QString filter;
    QStringList rows;
  } table[] = {
      {"NODE", {"web/node_modules *"}},
      {"  api   TARGET ", {"api/target *"}},
      {"compiler", {"api/target *"}},
      {"größe", {"api/Größe *"}},
      {"GRÖSSE", {}},
      {"node target", {}},
      {"", {"web/node_modules *", "api/Größe *", "api/target *"}},
  };
  for (const auto& row : table) {
    model.setFilter(row.filter);
    const QStringList heading = row.rows.isEmpty() ? QStringList() : QStringList("# Safe to Clean");
    EXPECT_EQ(shown(model), heading + row.rows) << row.filter.toStdString();
    EXPECT_EQ(test.model().totals().selectedCount, 3U);
    EXPECT_EQ(model.hiddenSelectedCount(3), 3U - static_cast<std::size_t>(row.rows.size()));
  }
}

// Everything people can do, at random, against a list that is made from nothing after each step.
class RandomSession {
 public:
  explicit RandomSession(unsigned seed) : random_(seed) {
    natural_.setNumericMode(true);
    natural_.setCaseSensitivity(Qt::CaseInsensitive);
    scan();
  }

  void step() {
    constexpr const char* filters[] = {"", "a", "1", "A 1", "item2", "ü", "nothing"};
    switch (pick(12)) {
      case 0:
        return scan();
      case 1:
        order_ = static_cast<SortOrder>(pick(3));
        return model_.setSortOrder(order_);
      case 2:
        filter_ = filters[pick(std::size(filters))];
        return model_.setFilter(filter_);
      case 3:
        return test_.model().selectSafeItems();
      case 4:
        return test_.model().unselectAll();
      default:
        return touchRow();
    }
  }

  void check() { ASSERT_EQ(shown(model_), expected()); }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }

  // Another scan while the list is there, which starts from the beginning.
  void scan() {
    constexpr const char* names[] = {"a", "A", "item", "Item", "ü", "z"};
    std::map<std::string, ScanCandidate> found;
    for (std::size_t count = pick(40); count > 0; --count) {
      const std::string path = std::string(names[pick(std::size(names))]) + "/" +
                               names[pick(std::size(names))] + std::to_string(pick(12));
      ScanCandidate& candidate = found[path];
      candidate = makeCandidate(path, static_cast<std::int64_t>(pick(5)),
                                allSafetyLevels[pick(allSafetyLevels.size())]);
      candidate.isSelected = pick(2) == 0;
      if (pick(3) > 0)
        candidate.modificationDate = Date(std::chrono::seconds(static_cast<int>(pick(4))));
    }
    std::vector<ScanCandidate> candidates;
    for (const auto& [path, candidate] : found) candidates.push_back(candidate);
    std::ranges::shuffle(candidates, random_);
    issueCount_ = pick(14);
    test_.scan(resultOf(candidates, issueCount_));
    order_ = SortOrder::size;
    filter_.clear();
    open_.clear();
    areIssuesOpen_ = false;
  }

  void touchRow() {
    if (model_.rowCount() == 0) return;
    const QModelIndex index =
        model_.index(static_cast<int>(pick(static_cast<std::size_t>(model_.rowCount()))), 0);
    const ScanCandidate* candidate = model_.candidate(index);
    const bool isOn = pick(2) == 0;
    if (candidate == nullptr) {
      if (model_.setData(index, isOn, ui::OpenRole)) areIssuesOpen_ = isOn;
    } else if (pick(2) == 0) {
      model_.setData(index, isOn ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
      EXPECT_EQ(model_.candidate(index)->isSelected, isOn);
    } else {
      isOn ? void(open_.insert(candidate->id())) : void(open_.erase(candidate->id()));
      EXPECT_TRUE(model_.setData(index, isOn, ui::OpenRole));
    }
  }

  bool comesBefore(const ScanCandidate& left, const ScanCandidate& right) const {
    if (order_ == SortOrder::size) return left.size > right.size;
    if (order_ == SortOrder::name)
      return natural_.compare(QString::fromStdString(left.relativePath),
                              QString::fromStdString(right.relativePath)) < 0;
    if (!left.modificationDate) return false;
    return !right.modificationDate || *left.modificationDate < *right.modificationDate;
  }

  bool isPicked(const ScanCandidate& candidate) const {
    const QString path = QString::fromStdString(candidate.relativePath);
    return std::ranges::all_of(filter_.split(' ', Qt::SkipEmptyParts), [&](const QString& word) {
      return path.contains(word, Qt::CaseInsensitive);
    });
  }

  QStringList expected() const {
    QStringList rows;
    for (const SafetyLevel level : allSafetyLevels) {
      std::vector<const ScanCandidate*> items;
      for (const ScanCandidate& candidate : test_.model().candidates()) {
        if (candidate.safety == level && isPicked(candidate)) items.push_back(&candidate);
      }
      std::ranges::stable_sort(
          items, [this](auto* left, auto* right) { return comesBefore(*left, *right); });
      if (!items.empty()) rows << "# " + QString::fromStdString(std::string(title(level)));
      for (const ScanCandidate* item : items) {
        rows << QString::fromStdString(item->relativePath) + (item->isSelected ? " *" : "");
        if (open_.contains(item->id())) rows << "details";
      }
    }
    if (issueCount_ == 0) return rows;
    rows << QStringLiteral("%1 item(s) could not be read and were skipped.").arg(issueCount_);
    if (!areIssuesOpen_) return rows;
    constexpr std::size_t most = 10;
    for (std::size_t number = 0; number < std::min(issueCount_, most); ++number)
      rows << QStringLiteral("/home/ada/src/%1").arg(number);
    if (issueCount_ > most) rows << QStringLiteral("And %1 more…").arg(issueCount_ - most);
    return rows;
  }

  std::mt19937 random_;
  mutable test::TestWindow test_;
  ResultsModel model_{test_.model()};
  const QAbstractItemModelTester tester_{&model_,
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
  QCollator natural_{QLocale(QLocale::English)};
  SortOrder order_ = SortOrder::size;
  QString filter_;
  std::set<std::string> open_;
  bool areIssuesOpen_ = false;
  std::size_t issueCount_ = 0;
};

TEST(ResultsModel, StaysRightWhateverPeopleDo) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    SCOPED_TRACE(seed);
    RandomSession session(seed);
    for (int step = 0; step < 150; ++step) {
      session.step();
      ASSERT_NO_FATAL_FAILURE(session.check()) << "after step " << step;
    }
  }
}

}  // namespace
}  // namespace broomtide
