#pragma once

#include <QMenu>
#include <QWidget>

#include "app/AppModel.h"

QT_FORWARD_DECLARE_CLASS(QVBoxLayout)

namespace broomtide::ui {

/// What there is to know about a candidate: why it may go and how to get it back. Its texts can be
/// selected and copied.
class CandidateDetails final : public QWidget {
  Q_OBJECT
 public:
  explicit CandidateDetails(const ScanCandidate& candidate, QWidget* parent = nullptr);

 private:
  void addWithSymbol(const QString& symbol, const QString& text, const char* name);
  void addCommand(const QString& command);

  QVBoxLayout* lines_;
};

/// What can be done with one candidate. It acts on the candidate that it was made for, wherever
/// its row is by then.
class CandidateMenu final : public QMenu {
  Q_OBJECT
 public:
  CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
