#pragma once

#include <QtCore/QByteArray>

struct Model;

/// A SHA-256 over all that a model's scene is, as 64 hexadecimal digits: two scenes have the same digest exactly when
/// every name, the hierarchy, every value (bit by bit) and every world matrix are the same.
///
/// It covers whatever can be reached from the model's root and containers through attachments and handles in fields, so
/// that new container types need nothing here. Containers are told apart by the order in which they are reached, not by
/// their ids, which differ from run to run. Left out are links upwards, which follow from those downwards, and volumes,
/// which are caches.
QByteArray sceneDigest(const Model& model);
