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
    /// True, also for null; a chunk may be added several times. The slot -2 takes the place of another chunk of its kind
    /// when the material is drawn; the list of slots ends with the last one that is another.
    bool addChunk(StateChunkPtr chunk, Int32 slot = anySlot);
    /// Removes the first entry of the chunk in that slot and gives false; if there is none, warns and gives true.
    bool subChunk(StateChunkPtr chunk, Int32 slot = anySlot);
    /// The first entry of the chunk; -1 if there is none.
    Int32 find(StateChunkPtr chunk) const;

protected:
    ChunkMaterial() = default;
    /// A copy shares the chunks.
    ChunkMaterial(const ChunkMaterial& source);
    ~ChunkMaterial() override;

private:
    static constexpr Int32 anySlot = -2;

    Int32 findSlot(const StateChunkPtr& chunk, Int32 slot) const;
};

OSG_HANDLE_FIELDS(ChunkMaterialPtr)

} // namespace osg
