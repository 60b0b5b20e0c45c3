#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

class Button;
class Label;

/// The lower part of the results: what is selected, and what can be done with it.
class ResultsFooter final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsFooter(AppModel& model, QWidget* parent = nullptr);

  /// Shows what is selected; the filter leaves out this many of the items.
  void refresh(const Selection::Totals& totals, std::size_t hiddenCount);

  /// The default action of the screen.
  Button& move() { return *move_; }

 private:
  Label* selection_;
  Button* move_;
};

}  // namespace broomtide::ui
