#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPointer>

#include <memory>

class QAbstractItemView;
class QUndoCommand;
class QUndoStack;
class moUndoStack;
struct moStackMove;

/// The history of a stack as a model, for a view that the application docks itself.
///
///     auto* model = new moUndoHistoryModel(moUndoStack::get(), dock);
///     auto* view = new QTreeView(dock);
///     model->showIn(*view);
///
/// Row 0 is the start, row i the state after i steps. Below a composite or a macro stand its children, to any depth;
/// compositions that were cancelled are left out. A macro is a row from its end on.
///
/// The model changes after each call of the stack, when its step was reported to the listeners of the stack, like
/// moUndoStackState. It keeps no command: while a step is being reported, a row whose step was deleted already is
/// empty. A view that throws does not undo a step: the caller of the outermost call gets the exception (see moStep),
/// and the model is reset.
class MO_UNDO_STACK_EXPORT moUndoHistoryModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// What data() answers beside the roles of Qt.
    enum Role
    {
        CleanRole = Qt::UserRole, ///< bool: whether the stack is clean in this state
        DoneRole                  ///< bool: whether the step is done; that of the start is true
    };

    /// Follows a stack. The model may be destroyed at any time. Once the stack is destroyed, at process exit, all rows
    /// are empty.
    explicit moUndoHistoryModel(moUndoStack& stack, QObject* parent = nullptr);
    ~moUndoHistoryModel() override;

    /// Makes the view one of the history: its current row follows the stack, and the stack goes to the row that the
    /// user chooses. Choosing a child moves nothing. If a choice is refused, as by an open macro, the view returns to
    /// the row of the stack. The view scrolls to that row when the program returns to its event loop.
    ///
    /// Rows are not edited and, in a QListView or QTreeView, of one height, so that a long history costs no more than a
    /// short one. The header of a QTreeView is hidden. Ends when the view gets another model or selection model.
    ///
    /// \param view  stays the caller's.
    void showIn(QAbstractItemView& view);

    /// The row of the present state.
    QModelIndex currentIndex() const;

    /// The index of a row; invalid if there is none.
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    /// The row of the composite or macro that a child belongs to; invalid for a step.
    QModelIndex parent(const QModelIndex& child) const override;
    /// Number of steps and the start; below a row, number of its children.
    int rowCount(const QModelIndex& parent = {}) const override;
    /// 1.
    int columnCount(const QModelIndex& parent = {}) const override;

    /// Qt::DisplayRole: the text of the command on one line; tr("<empty>") for the start. Qt::ToolTipRole: its
    /// description. Qt::FontRole: bold at the clean state. Qt::ForegroundRole: that of a placeholder text, if the step is
    /// undone. And those of Role.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    class View;
    struct Parent;

    const QUndoStack* stack() const;
    Parent* around(const QModelIndex& index) const;
    Parent* parentAt(const QModelIndex& index) const;
    const QUndoCommand* commandAt(const QModelIndex& index) const;
    int stepRow(const QModelIndex& index) const;

    template<class Signal>
    bool tell(const Signal& signal);
    template<class Change>
    void remove(const QModelIndex& parent, int first, int last, const Change& change);
    template<class Change>
    void insert(const QModelIndex& parent, int first, int last, const Change& change);

    void update(const moStackMove& move);
    void apply(const moStackMove& move);
    void removeFrom(int first);
    void removeOldest();
    void refresh(int first, int last);
    void refreshChildren(const QModelIndex& parent, const QUndoCommand& command);
    void refreshClean();
    void readStack();
    void reset();

    QPointer<moUndoStack> m_stack;
    std::unique_ptr<Parent> m_root;
    int m_rows = 1;
    int m_index = 0;         ///< row of the present state
    int m_clean = 0;         ///< row of the clean state; -1: none
    int m_dropped = 0;       ///< so many of the oldest steps were deleted whose rows are still there
    unsigned int m_call = 0; ///< number of the last call that the rows show
    bool m_changing = false;
    mutable bool m_lost = false; ///< it is not known what the rows show
};
