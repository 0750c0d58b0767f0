#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QStringList>

#include <array>

/// The menu bar of the editor.
class EditorMenus : public QObject {
    Q_OBJECT

  public:
    explicit EditorMenus(QMainWindow& window);

    /// The test files behind the numbered items.
    void ShowFiles(const QStringList& names);
    void SetHtmlExportEnabled(bool enabled) { savehtml_->setEnabled(enabled); }

  Q_SIGNALS:
    void NewWanted();
    void OpenWanted();
    void mnufilesave_Click();
    void mnufilesaveas_Click();
    void savehtml_Click();
    /// From 1.
    void mnuop_Click(int i);
    void quiteditor_Click();
    void gen_Click();
    void hlp_Click();
    void about_Click();

  private:
    static constexpr int MostFiles = 10;

    QAction* Add(QMenu& menu, const QString& name, const QString& caption, void (EditorMenus::*signal)(),
                 const QKeySequence& keys = {});

    QMainWindow& window_;
    QAction* savehtml_ = nullptr;
    QAction* fileListBar_ = nullptr;
    std::array<QAction*, MostFiles + 1> mnuop_{};
};
