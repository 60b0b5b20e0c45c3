#pragma once

#include <QMenu>
#include <string>

#include "app/AppModel.h"

namespace broomtide::ui {

/// What can be done with one candidate. It acts on the candidate that it was made for, wherever
/// its row is by then.
class CandidateMenu final : public QMenu {
  Q_OBJECT
 public:
  CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
