#include "editor/ui/EditorMenus.h"

#include <QMenuBar>

EditorMenus::EditorMenus(QMainWindow& window) : QObject(&window), window_(window) {
    QMenu& file = *window.menuBar()->addMenu(QStringLiteral("&File"));
    Add(file, QStringLiteral("mnufile_1"), QStringLiteral("&New Test"), &EditorMenus::NewWanted, QKeySequence::New);
    Add(file, QStringLiteral("mnufile_2"), QStringLiteral("&Open Test"), &EditorMenus::OpenWanted, QKeySequence::Open);
    Add(file, QStringLiteral("mnufilesave"), QStringLiteral("&Save Test"), &EditorMenus::mnufilesave_Click,
        QKeySequence::Save);
    Add(file, QStringLiteral("mnufilesaveas"), QStringLiteral("Save &As"), &EditorMenus::mnufilesaveas_Click,
        Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    savehtml_ = Add(file, QStringLiteral("savehtml"), QStringLiteral("Save as &html"), &EditorMenus::savehtml_Click);
    fileListBar_ = file.addSeparator();
    for (int i = 0; i <= MostFiles; ++i) {
        QAction* item = file.addAction(QString());
        item->setObjectName(QStringLiteral("mnuop_%1").arg(i));
        item->setVisible(false);
        connect(item, &QAction::triggered, this, [this, i] { Q_EMIT mnuop_Click(i); });
        mnuop_[static_cast<size_t>(i)] = item;
    }
    file.addSeparator()->setObjectName(QStringLiteral("bar1"));
    Add(file, QStringLiteral("quiteditor"), QStringLiteral("&Quit"), &EditorMenus::quiteditor_Click);

    QMenu& options = *window.menuBar()->addMenu(QStringLiteral("&Options"));
    Add(options, QStringLiteral("gen"), QStringLiteral("&General Options"), &EditorMenus::gen_Click);

    QMenu& help = *window.menuBar()->addMenu(QStringLiteral("&Help"));
    Add(help, QStringLiteral("hlp"), QStringLiteral("Help"), &EditorMenus::hlp_Click);
    Add(help, QStringLiteral("about"), QStringLiteral("&About Vellumo"), &EditorMenus::about_Click);
}

void EditorMenus::ShowFiles(const QStringList& names) {
    fileListBar_->setVisible(!names.isEmpty());
    for (int i = 1; i <= MostFiles; ++i) {
        QAction* item = mnuop_[static_cast<size_t>(i)];
        item->setVisible(i <= names.size());
        if (i > names.size())
            continue;
        // An ampersand of the name's own would be taken for a mnemonic.
        QString name = names[i - 1];
        name.replace(u'&', QStringLiteral("&&"));
        item->setText((i < 10 ? QStringLiteral("&") : QString()) + QString::number(i) + u' ' + name);
    }
}

QAction* EditorMenus::Add(QMenu& menu, const QString& name, const QString& caption, void (EditorMenus::*signal)(),
                          const QKeySequence& keys) {
    QAction* item = menu.addAction(caption);
    item->setObjectName(name);
    item->setShortcut(keys);
    connect(item, &QAction::triggered, this, signal);
    return item;
}
