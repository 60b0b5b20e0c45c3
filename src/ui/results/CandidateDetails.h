#pragma once

#include <QWidget>

#include "core/ScanCandidate.h"

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

}  // namespace broomtide::ui
