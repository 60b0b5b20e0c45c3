#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace broomtide::ui {

/// A vertical layout, centred in its parent and as wide as that up to a maximum width.
class Column final : public QWidget {
 public:
  /// With `scrolling`, the column is wider by a vertical scroll bar, which reaches into the margin.
  enum class Content { fixed, scrolling };

  /// Becomes a child of `parent` and sets its layout. `maxWidth` is in pixels, without the scroll
  /// bar. REQUIRES: `parent` has no layout.
  Column(QWidget& parent, int maxWidth, Content content = Content::fixed);

  /// Adds a widget with the extent of a scroll bar as its right margin. The column takes ownership.
  void addClearOfScrollBar(QWidget* line);

  QVBoxLayout& lines() { return *lines_; }

 private:
  QVBoxLayout* lines_;
};

/// The placeholder for a list without rows: an icon, a title and a description.
class EmptyState final : public QWidget {
 public:
  EmptyState(const QString& symbol, const QString& title, const QString& description,
             QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
