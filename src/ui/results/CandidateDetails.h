#pragma once

#include <QMenu>
#include <QWidget>

#include "app/AppModel.h"

QT_FORWARD_DECLARE_CLASS(QVBoxLayout)

namespace broomtide::ui {

/// The expanded details of a candidate: why it may go and how to get it back. Its labels are
/// selectable. The candidate is only read while the widget is constructed.
class CandidateDetails final : public QWidget {
  Q_OBJECT
 public:
  explicit CandidateDetails(const ScanCandidate& candidate, QWidget* parent = nullptr);

 private:
  void addWithSymbol(const QString& symbol, const QString& text, const char* name);
  void addCommand(const QString& command);

  QVBoxLayout* lines_;
};

/// The context menu of a candidate. It keeps the identifier and the path, so it acts on the same
/// candidate even when rows move or go while it is open.
class CandidateMenu final : public QMenu {
  Q_OBJECT
 public:
  CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
