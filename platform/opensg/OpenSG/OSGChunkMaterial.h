#pragma once

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGStateChunk.h>

namespace osg {

class ChunkMaterial;
typedef FCPtr<MaterialPtr, ChunkMaterial> ChunkMaterialPtr;

// clang-format off
//         type           Name    description
#define OSG_CHUNKMATERIAL_FIELDS(SINGLE, MULTI) \
    MULTI (StateChunkPtr, Chunks, "chunks") \
    MULTI (Int32,         Slots,  "slots")
// clang-format on

OSG_CONTAINER_BASE(ChunkMaterial, Material, OSG_CHUNKMATERIAL_FIELDS)

/// A material made of state chunks, each in a slot. It holds a reference on every chunk.
class OSG_BASELIB_DLLMAPPING ChunkMaterial : public ChunkMaterialBase
{
    OSG_CONTAINER_OWNING(ChunkMaterial)

public:
    static constexpr Int32 AutoSlot = -1;

    /// False for null; a chunk may be added several times.
    bool addChunk(const StateChunkPtr& chunk, Int32 slot = AutoSlot);
    /// Removes the first entry of the chunk in that slot; false if there is none.
    bool subChunk(const StateChunkPtr& chunk, Int32 slot = AutoSlot);
    /// -1 if there is none.
    Int32 findChunk(const StateChunkPtr& chunk, Int32 slot = AutoSlot) const;

protected:
    ChunkMaterial() = default;
    /// A copy shares the chunks.
    ChunkMaterial(const ChunkMaterial& source);
    ~ChunkMaterial() override;
};

OSG_HANDLE_FIELDS(ChunkMaterialPtr)

} // namespace osg
