// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/DatafileWindow.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowController.h"
#include "ui/WidgetSheetHost.h"
#include "ui/WidgetWorkHost.h"

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <span>
#include <utility>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QSplitter;
class QStackedWidget;
class QToolButton;

namespace tavrin {

class ApplicationMenus;
class CellDelegate;
struct Command;
class FindBox;
class EditorToolbar;
class EditorToolbarController;
class FieldWrapping;
class FreeformRuler;
class FreeformTextEdit;
class KeyboardFocus;
class RecordInfoPaletteController;
class RecordTableView;
class Spelling;
class WindowFindView;

/// One editor window: builds the widgets, hands on what the person does, shows what the controller says.
class EditorWindow : public QMainWindow, public DatafileWindow, public EditorView
{
    Q_OBJECT

public:
    /// The document, the preferences and the menus outlive the window. prepare() of the controller has run
    /// when the constructor returns.
    EditorWindow(DatafileDocument &document,
                 Preferences &preferences,
                 ApplicationMenus &menus,
                 const QString &firstRecord);
    /// A clone of that window, which outlives it.
    struct CloneOf
    {
        EditorWindow &mainWindow;
    };
    explicit EditorWindow(CloneOf original);
    ~EditorWindow() override;

    /// The palette that all windows share; it outlives the window.
    void setRecordInfoPalette(RecordInfoPaletteController &palette);
    /// The spelling that all windows share; it outlives the window.
    void setSpelling(Spelling &spelling);

    // DatafileWindow
    EditorWindowController &controller() override { return g_controller; }
    void bringToFront() override;

    // EditorView
    QString freeformText() const override;
    richtext::AttributedText formattedFreeformText() const override;
    void setFreeformText(const richtext::AttributedText &text,
                         const richtext::CharacterFormat &plain) override;
    QTextCursor freeformCursor() const override;
    void setFreeformCursor(const QTextCursor &cursor) override;
    void decorateFreeformText(const std::function<void(QTextDocument &)> &change) override;
    void insertIntoCell(const QString &text) override;
    QString linkInCell() const override;
    void deactivateCellLinks() override;
    bool isFreeformTextModified() const override;
    void clearFreeformTextModified() override;
    void setFreeformTextEditable(bool editable) override;
    bool pasteIntoFreeformText(bool plain) override;
    bool isTableEditing() const override;
    void endTableEditing() override;
    void selectTableRow(int row) override;
    void editTableCell(int row, int column) override;
    void resumeTableCell(int row, int column) override;
    EditorFocus focus() const override;
    void setFocus(EditorFocus focus) override;
    QString frame() const override;
    void setFrame(const QString &frame) override;
    double splitHeight() const override;
    void setSplitHeight(double height) override;
    void insertTyped(const QString &text) override;
    void setTextScale(double scale) override;
    std::pair<int, int> cellTextSelection() const override;
    void setCellTextSelection(int start, int length) override;

Q_SIGNALS:
    void datafilesDropped(const QStringList &paths);
    /// The person turned to this window.
    void activated();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void build();
    void updateAll();
    void buildTables();
    void followTables();
    void updateTableLooks();
    void hitBasicCell(const QModelIndex &index);
    void buildTextArea();
    void buildMenus(ApplicationMenus &menus);
    void buildEditMenu();
    void buildFormatMenu();
    void buildViewMenu();
    void buildSortMenu();
    void buildFinding();
    void buildColumnMenu();
    void showColumnMenu(int column, const QPoint &position, bool isOnRecord);
    void addCommands(QMenu *menu, std::span<const Command> commands);
    void buildToolbar();
    void buildStatusBar();
    void buildLockButton();
    void buildTextMenu(QMenu &menu);
    void buildTextScaleMenu(QMenu &menu);
    void followToolbar();
    void followView();
    void doForView(const QString &selector);
    void updateToolbar();
    void updateRecordInfo();
    void updateLockButton();
    void openClone();
    void closeClone();
    void followController();
    void followText();
    void updateRuler();
    void updateStates(const QMenu &menu);
    QAction *actionFor(const QString &selector);
    RecordTableView &visibleTable() const;
    void moveInBasicView(bool forward);
    void moveInListView(bool forward, bool byReturn);
    void applyColumnWidths();
    void applySplitHeight();
    void updateMode();
    void updateRecord();
    void updateStatus();
    void updateTitle();
    void updateOperations();

    WidgetSheetHost g_sheets;
    WidgetWorkHost g_work;
    EditorWindowController g_controller;
    QHash<QString, QAction *> g_actions;
    KeyboardFocus *g_focus;
    FindBox *g_findBox = nullptr;
    std::unique_ptr<WindowFindView> g_findView;
    QStackedWidget *g_tables = nullptr;
    RecordTableView *g_basicTable = nullptr;
    RecordTableView *g_listTable = nullptr;
    QSplitter *g_splitter = nullptr;
    QLabel *g_textTitle = nullptr;
    FreeformRuler *g_ruler = nullptr;
    FreeformTextEdit *g_text = nullptr;
    QToolButton *g_recordNumberButton = nullptr;
    QToolButton *g_selectionButton = nullptr;
    QToolButton *g_recordLocked = nullptr;
    QLabel *g_readOnlyMark = nullptr;
    QAction *g_basicViewAction = nullptr;
    QAction *g_listViewAction = nullptr;
    QMenu *g_sortTasksMenu = nullptr;
    double g_wantedSplitHeight = -1;
    std::pair<bool, bool> g_caretPlace; ///< Whether the caret is in a link, and in a table.
    bool g_closing = false;
    bool g_applyingWidths = false;
    std::unique_ptr<EditorToolbarController> g_toolbarController;
    EditorToolbar *g_toolbar = nullptr;
    QActionGroup *g_textScaleActions = nullptr;
    RecordInfoPaletteController *g_recordInfo = nullptr;
    ApplicationMenus &g_menus;
    FieldWrapping *g_fieldWrapping = nullptr;
    Spelling *g_spelling = nullptr;
    std::unique_ptr<EditorWindow> g_clone; ///< Goes before its main window.
};

} // namespace tavrin
