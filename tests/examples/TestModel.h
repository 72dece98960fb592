#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// Model files of a test, in a directory that is removed with it.
class ModelFiles
{
public:
    /// Writes a file and returns its full name.
    QString write(const char* name, const QByteArray& contents) const;
    /// Full name of a file that is not there.
    QString path(const char* name) const { return m_directory.filePath(name); }

private:
    QTemporaryDir m_directory;
};

/// The program's default model.
QString studioModel();

/// A glTF file whose nodes are given as JSON, the first being the root.
QByteArray gltf(const QByteArray& nodes);

/// One triangle each.
QByteArray objTriangle();
QByteArray plyTriangle();
