#pragma once

#include <QWidget>

namespace broomtide::ui {

/// What is shown in place of a list that has nothing in it.
class EmptyState final : public QWidget {
 public:
  EmptyState(const QString& symbol, const QString& title, const QString& description,
             QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
