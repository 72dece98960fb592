#pragma once

#include <QtWidgets/QMainWindow>

class EditorSession;
class QActionGroup;
class QLabel;
class Viewport;

/// The editor: a viewport, docks around it, and the menus.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// What a question whether to save is answered with.
    enum class Answer
    {
        Save,
        Discard,
        Cancel
    };

    explicit EditorWindow(EditorSession& session, QWidget* parent = nullptr);

    Viewport& viewport() { return *m_viewport; }

    /// Loads a scene; what is wrong with the file is shown in a message box, and the old scene stays.
    bool load(const QString& fileName);
    /// Saves the scene; asks for a name unless it was saved before.
    bool save();

protected:
    void closeEvent(QCloseEvent* event) override;

    // The dialogs, which wait for the user. Tests answer in his place.
    virtual Answer askToSave();
    virtual QString askForModel();
    virtual QString askForTarget();
    virtual void complain(const QString& text);

private:
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeToolMenu();
    void makeDocks();
    void open();
    bool mayLeave();
    void showTitle();

    EditorSession& m_session;
    Viewport* m_viewport;
    QLabel* m_frameTime;
    QString m_target; ///< where it was saved last
};
