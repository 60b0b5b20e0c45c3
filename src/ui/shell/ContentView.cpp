#include "ui/shell/ContentView.h"

#include "ui/look/EngineText.h"
#include "ui/results/ResultsView.h"
#include "ui/screens/ConfirmationView.h"
#include "ui/screens/HistoryView.h"
#include "ui/screens/ScanningView.h"
#include "ui/screens/SummaryView.h"
#include "ui/screens/WelcomeView.h"

namespace broomtide::ui {
namespace {

constexpr QSize minSize(820, 600);

// The focus proxy of a screen is where its focus begins. It is reset then, because a screen with a
// proxy catches Tab, and the controls before the proxy in the tab order are never reached.
void giveFocus(QWidget& screen) {
  QWidget* first = screen.focusProxy();
  screen.setFocusProxy(nullptr);
  const bool canBegin = first != nullptr && first->isEnabled();
  (canBegin ? first : &screen)->setFocus(Qt::OtherFocusReason);
}

}  // namespace

ContentView::ContentView(AppModel& model, QWidget* parent) : QStackedWidget(parent), model_(model) {
  setMinimumSize(minSize);
  observation_ = model.observe([this](AppModel::Field field) { onModelChanged(field); });
  showScreen();
}

void ContentView::onModelChanged(AppModel::Field field) {
  if (field == AppModel::Field::route) showScreen();
  if (field == AppModel::Field::errorMessage) showAlert();
}

// The screen that is left is deleted later: it may have called what changed the route.
void ContentView::showScreen() {
  QWidget* left = currentWidget();
  QWidget* entered = makeScreen();
  addWidget(entered);
  setCurrentWidget(entered);
  giveFocus(*entered);
  if (left == nullptr) return;
  removeWidget(left);
  left->hide();
  left->deleteLater();
}

QWidget* ContentView::makeScreen() {
  switch (model_.route()) {
    case Route::welcome:
      return new WelcomeView(model_);
    case Route::scanning:
      return new ScanningView(model_);
    case Route::results:
      return new ResultsView(model_);
    case Route::confirmation:
      return new ConfirmationView(model_);
    case Route::summary:
      return new SummaryView(model_);
    case Route::history:
      break;
  }
  return new HistoryView(model_);
}

void ContentView::showAlert() {
  if (!model_.errorMessage()) return;
  if (alert_ == nullptr) {
    alert_ = new QMessageBox(QMessageBox::NoIcon, tr("Broomtide"), {}, QMessageBox::Ok, this);
    alert_->setObjectName("alert");
    alert_->setTextFormat(Qt::PlainText);
    alert_->setAttribute(Qt::WA_DeleteOnClose);
    connect(alert_, &QMessageBox::finished, this, [this] {
      alert_.clear();  // it is closing, so a further message needs a new one
      model_.clearErrorMessage();
    });
  }
  alert_->setText(enginetext::sentence(*model_.errorMessage()));
  alert_->open();
}

}  // namespace broomtide::ui
