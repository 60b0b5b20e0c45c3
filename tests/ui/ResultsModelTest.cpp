#include "ui/results/ResultsModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCollator>
#include <algorithm>
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
    QString text = index.data().toString();
    switch (static_cast<ResultsRowKind>(index.data(ui::KindRole).toInt())) {
      case ResultsRowKind::section:
        text.prepend("# ");
        break;
      case ResultsRowKind::candidate:
        text = index.data(ui::PathRole).toString();
        if (index.data(Qt::CheckStateRole).toInt() == Qt::Checked) text += " *";
        break;
      case ResultsRowKind::details:
        text = "details";
        break;
      case ResultsRowKind::issuesHeading:
      case ResultsRowKind::issue:
      case ResultsRowKind::moreIssues:
        break;
    }
    rows << text;
  }
  return rows;
}

TEST(ResultsModel, OrdersEachLevelByTheChosenSort) {
  const Date early{std::chrono::seconds(1)};
  const Date late{std::chrono::seconds(2)};
  const auto dated = [](const char* path, std::int64_t size, std::optional<Date> date) {
    ScanCandidate candidate = makeCandidate(path, size);
    candidate.modificationDate = date;
    return candidate;
  };
  test::TestWindow test;
  test.scan(resultOf({dated("b/item10", 5, std::nullopt), dated("B/item2", 5, late),
                      dated("a/undated", 9, std::nullopt), dated("c", 1, early),
                      makeCandidate("first", 7, reviewFirst)}));
  const struct {
    SortOrder order;
    QStringList rows;
  } table[] = {
      {SortOrder::size, {"a/undated", "b/item10", "B/item2", "c"}},
      {SortOrder::name, {"a/undated", "B/item2", "b/item10", "c"}},
      {SortOrder::date, {"c", "B/item2", "b/item10", "a/undated"}},
  };
  ResultsModel model(test.model());
  for (const auto& row : table) {
    model.setSortOrder(row.order);
    const QStringList rows =
        QStringList("# Safe to Clean") + row.rows + QStringList({"# Review First", "first"});
    EXPECT_EQ(shown(model), rows) << shown(model).join('\n').toStdString();
  }
}

TEST(ResultsModel, ListsTenIssuesAndCountsTheRest) {
  const struct {
    std::size_t count;
    int rowsWhenOpen;
    QString heading;
    QString last;
  } table[] = {
      {1, 2, "1 item(s) could not be read and were skipped.", "/home/ada/src/0"},
      {10, 11, "10 item(s) could not be read and were skipped.", "/home/ada/src/9"},
      {11, 12, "11 item(s) could not be read and were skipped.", "And 1 more…"},
      {250, 12, "250 item(s) could not be read and were skipped.", "And 240 more…"},
  };
  for (const auto& row : table) {
    test::TestWindow test;
    test.scan(resultOf({makeCandidate("a")}, row.count));
    ResultsModel model(test.model());
    EXPECT_EQ(shown(model), QStringList({"# Safe to Clean", "a", row.heading}));
    model.setData(model.index(2, 0), true, ui::OpenRole);
    EXPECT_EQ(model.rowCount(), 2 + row.rowsWhenOpen);
    EXPECT_EQ(shown(model).last(), row.last);
    model.setData(model.index(2, 0), false, ui::OpenRole);
    EXPECT_EQ(model.rowCount(), 3);
  }
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

TEST(ResultsModel, LetsGoOfCandidatesThatAreGone) {
  test::TestWindow test;
  test.scan(resultOf({makeCandidate("a"), makeCandidate("b")}, 1));
  ResultsModel model(test.model());
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.setData(model.index(1, 0), true, ui::OpenRole);
  test.model().returnHome();
  EXPECT_EQ(model.rowCount(), 0);
  test.scan(resultOf({makeCandidate("other")}));
  EXPECT_EQ(shown(model), QStringList({"# Safe to Clean", "other"}));
}

// Everything people can do, at random, against a list that is made from nothing after each step.
class RandomSession {
 public:
  explicit RandomSession(unsigned seed) : random_(seed) { scan(); }

  void step() {
    switch (pick(12)) {
      case 0:
        scan();
        break;
      case 1:
        order_ = static_cast<SortOrder>(pick(3));
        model_->setSortOrder(order_);
        break;
      case 2: {
        constexpr const char* words[] = {"", "a", "1", "A 1", "item2", "ü", "nothing"};
        filter_ = words[pick(std::size(words))];
        model_->setFilter(filter_);
        break;
      }
      case 3:
        test_.model().selectSafeItems();
        break;
      case 4:
        test_.model().unselectAll();
        break;
      default:
        touchRow();
    }
  }

  void check() {
    ASSERT_EQ(shown(*model_), expected()) << shown(*model_).join('\n').toStdString() << "\n--\n"
                                          << expected().join('\n').toStdString();
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }

  void scan() {
    std::vector<ScanCandidate> candidates;
    std::set<std::string> known;
    for (std::size_t count = pick(40); count > 0; --count) {
      constexpr const char* names[] = {"a", "A", "item", "Item", "ü", "z"};
      const std::string path = std::string(names[pick(std::size(names))]) + "/" +
                               names[pick(std::size(names))] + std::to_string(pick(12));
      if (!known.insert(path).second) continue;
      ScanCandidate candidate = makeCandidate(path, static_cast<std::int64_t>(pick(5)),
                                              allSafetyLevels[pick(allSafetyLevels.size())]);
      candidate.isSelected = pick(2) == 0;
      if (pick(3) > 0)
        candidate.modificationDate = Date(std::chrono::seconds(static_cast<int>(pick(4))));
      candidates.push_back(candidate);
    }
    issueCount_ = pick(14);
    model_.reset();
    test_.scan(resultOf(candidates, issueCount_));
    model_ = std::make_unique<ResultsModel>(test_.model());
    tester_ = std::make_unique<QAbstractItemModelTester>(
        model_.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    order_ = SortOrder::size;
    filter_.clear();
    open_.clear();
    areIssuesOpen_ = false;
  }

  void touchRow() {
    if (model_->rowCount() == 0) return;
    const QModelIndex index =
        model_->index(static_cast<int>(pick(static_cast<std::size_t>(model_->rowCount()))), 0);
    const ScanCandidate* candidate = model_->candidate(index);
    const bool isOpen = pick(2) == 0;
    if (candidate == nullptr) {
      if (model_->setData(index, isOpen, ui::OpenRole)) areIssuesOpen_ = isOpen;
    } else if (pick(2) == 0) {
      const bool isSelected = pick(2) == 0;
      const std::string id = candidate->id();
      EXPECT_TRUE(
          model_->setData(index, isSelected ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole));
      EXPECT_EQ(std::ranges::find(test_.model().candidates(), id, &ScanCandidate::id)->isSelected,
                isSelected);
    } else {
      const std::string id = candidate->id();
      EXPECT_TRUE(model_->setData(index, isOpen, ui::OpenRole));
      isOpen ? void(open_.insert(id)) : void(open_.erase(id));
    }
  }

  bool comesBefore(const ScanCandidate& left, const ScanCandidate& right) const {
    switch (order_) {
      case SortOrder::size:
        return left.size > right.size;
      case SortOrder::name:
        return collator().compare(QString::fromStdString(left.relativePath),
                                  QString::fromStdString(right.relativePath)) < 0;
      case SortOrder::date:
        break;
    }
    if (!left.modificationDate) return false;
    return !right.modificationDate || *left.modificationDate < *right.modificationDate;
  }

  static const QCollator& collator() {
    static const QCollator natural = [] {
      QCollator collator{QLocale(QLocale::English)};
      collator.setNumericMode(true);
      collator.setCaseSensitivity(Qt::CaseInsensitive);
      return collator;
    }();
    return natural;
  }

  bool isPicked(const ScanCandidate& candidate) const {
    const QString path = QString::fromStdString(candidate.relativePath);
    const QString category = QString::fromStdString(std::string(candidate.category));
    const QStringList words = filter_.split(' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(words, [&](const QString& word) {
      return path.contains(word, Qt::CaseInsensitive) ||
             category.contains(word, Qt::CaseInsensitive);
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
      if (!items.empty()) {
        const std::string_view name = title(level);
        rows << "# " + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
      }
      for (const ScanCandidate* item : items) {
        rows << QString::fromStdString(item->relativePath) + (item->isSelected ? " *" : "");
        if (open_.contains(item->id())) rows << "details";
      }
    }
    if (issueCount_ == 0) return rows;
    rows << QStringLiteral("%1 item(s) could not be read and were skipped.").arg(issueCount_);
    if (!areIssuesOpen_) return rows;
    constexpr std::size_t most = 10;
    for (std::size_t number = 0; number < std::min(issueCount_, most); ++number) {
      rows << QStringLiteral("/home/ada/src/%1").arg(number);
    }
    if (issueCount_ > most) rows << QStringLiteral("And %1 more…").arg(issueCount_ - most);
    return rows;
  }

  std::mt19937 random_;
  mutable test::TestWindow test_;
  std::unique_ptr<ResultsModel> model_;
  std::unique_ptr<QAbstractItemModelTester> tester_;
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
