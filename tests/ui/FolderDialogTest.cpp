#include "ui/shell/FolderDialog.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QTimer>

#include "app/FolderChoice.h"
#include "support/TemporaryTree.h"
#include "ui/SpokenLanguage.h"

namespace broomtide {
namespace {

TEST(FolderDialog, SpeaksTheLanguageAndShowsNamesThatDeceiveForWhatTheyAre) {
  const test::SpokenLanguage pseudo({"pseudo"});
  const test::TemporaryTree tree;
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
    QStringList texts;
    QTimer::singleShot(0, QCoreApplication::instance(), [&texts] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      texts = {dialog->windowTitle(), dialog->labelText(QFileDialog::Accept),
               dialog->labelText(QFileDialog::Reject), dialog->labelText(QFileDialog::LookIn),
               dialog->findChild<QLabel*>("message")->text()};
      for (const char* name : {"listView", "treeView"}) {
        const auto* view = dialog->findChild<QAbstractItemView*>(name);
        const auto* delegate = qobject_cast<QStyledItemDelegate*>(view->itemDelegate());
        EXPECT_EQ(delegate->displayText("photo\u202egpj\n", QLocale()), "photo\\u202egpj\\n")
            << name;
      }
      dialog->reject();
    });
    ui::FolderDialog dialog;
    EXPECT_EQ(dialog.pickFolder(FolderChoice::request(mode, tree.root())), std::nullopt);
    EXPECT_EQ(texts.size(), 5);
    for (const QString& text : texts) EXPECT_TRUE(text.startsWith(u'⟦')) << text.toStdString();
  }
}

TEST(FolderDialog, KnowsWhatTheDesktopCallsDownloads) {
  test::TemporaryTree tree;
  qputenv("XDG_CONFIG_HOME", tree.root().c_str());
  tree.file("user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"/data/Téléchargements/\"\n");
  EXPECT_EQ(ui::FolderDialog().desktopDownloads(), "/data/Téléchargements");
  qunsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace broomtide
