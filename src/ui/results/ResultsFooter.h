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

  /// Shows the present selection, of which this many items are left out by the filter.
  void refresh(std::size_t hiddenCount);

  /// The default action of the screen.
  Button& move() { return *move_; }

 private:
  AppModel& model_;
  Label* selection_;
  Button* move_;
};

}  // namespace broomtide::ui
