#pragma once

#include <QtCore/QString>

struct Model;

/// Writes the scene as it is now as glTF 2.0: the nodes with names and transforms, the meshes that were read, lights
/// and materials as edited. What the format does not have is left out: tags, constraints, variants, link sets, lens
/// flares.
///
/// The values go into the file `fileName` and, beside it, a .bin file of the same name for the meshes. An existing file
/// is replaced only if all could be written.
///
/// \throws ModelError  if the files cannot be written.
void writeModel(const Model& model, const QString& fileName);
