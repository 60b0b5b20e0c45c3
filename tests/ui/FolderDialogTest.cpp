#include "ui/shell/FolderDialog.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QStyledItemDelegate>
#include <QTimer>

#include "app/FolderChoice.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

TEST(FolderDialog, ShowsNamesThatDeceiveForWhatTheyAre) {
  const test::TemporaryTree tree;
  int views = 0;
  QTimer::singleShot(0, QCoreApplication::instance(), [&views] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    for (const char* name : {"listView", "treeView"}) {
      const auto* view = dialog->findChild<QAbstractItemView*>(name);
      ASSERT_NE(view, nullptr) << name;
      const auto* delegate = qobject_cast<QStyledItemDelegate*>(view->itemDelegate());
      ASSERT_NE(delegate, nullptr) << name;
      EXPECT_EQ(delegate->displayText("photo\u202egpj\n", QLocale()), "photo\\u202egpj\\n") << name;
      ++views;
    }
    dialog->reject();
  });
  ui::FolderDialog dialog;
  EXPECT_EQ(dialog.pickFolder(FolderChoice::request(ScanMode::project, tree.root())), std::nullopt);
  EXPECT_EQ(views, 2);
}

}  // namespace
}  // namespace broomtide
