#pragma once

#include <QtCore/QString>

#include <vector>

class Progress;
class SceneWatch;
class moUndoStack;
struct Model;
struct Report;
struct SceneState;

/// What a chapter works with.
struct Context
{
    Model& model;
    moUndoStack& stack;
    Report& report;
    SceneWatch& scene;
    Progress& progress;

    /// Adds a check to the report: the scene is the same as then, up to rounding.
    void checkScene(const QString& what, const SceneState& then);
};

/// What one family of commands shows in a session.
struct Chapter
{
    const char* name;

    /// Adds to the scene what a model file does not have, before the session's first digest. May be null.
    void (*prepare)(Model& model);

    /// Edits the scene and adds checks to the report. When it returns, all changes must be steps of the stack, and none
    /// of them undone.
    void (*run)(Context& context);
};

void coreChapter(Context& context);
void fieldChapter(Context& context);
void lightChapter(Context& context);
void transformChapter(Context& context);
void materialChapter(Context& context);
void tagChapter(Context& context);
void constraintChapter(Context& context);

/// The chapters in the order of the session.
const std::vector<Chapter>& chapters();
