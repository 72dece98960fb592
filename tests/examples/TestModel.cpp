#include "TestModel.h"

#include <QtCore/QFile>

QString ModelFiles::write(const char* name, const QByteArray& contents) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write a model file");
    return file.fileName();
}

QString studioModel()
{
    return QStringLiteral(STUDIO_MODEL);
}

QByteArray gltf(const QByteArray& nodes)
{
    return R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}], "nodes": [)" + nodes + "]}";
}

QByteArray objTriangle()
{
    return "o Triangle\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
}

QByteArray plyTriangle()
{
    return "ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
           "element face 1\nproperty list uchar int vertex_indices\nend_header\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n";
}
