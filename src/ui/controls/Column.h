#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace broomtide::ui {

/// What stands in the middle of a wide window: a column that is as wide as its place until its
/// lines would be too long to read, with one line under another.
class Column final : public QWidget {
 public:
  /// What goes into the column: with something that scrolls, there is room for its scroll bar
  /// outside of the lines, and what does not scroll keeps clear of it.
  enum class Content { fixed, scrolling };

  /// Puts the column into `place`, which must have no layout yet.
  Column(QWidget& parent, int maxWidth, Content content = Content::fixed);

  /// Adds a line that ends where the content of a scrolling one ends.
  void addClearOfScrollBar(QWidget* line);

  QVBoxLayout& lines() { return *lines_; }

 private:
  QVBoxLayout* lines_;
};

/// What is shown in place of a list that has nothing in it.
class EmptyState final : public QWidget {
 public:
  EmptyState(const QString& symbol, const QString& title, const QString& description,
             QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
