#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGMaterialGroup.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <algorithm>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(Material, AttachmentContainer, OSG_MATERIAL_FIELDS)
OSG_ABSTRACT_CONTAINER_IMPL(StateChunk, Attachment, OSG_STATECHUNK_FIELDS)
OSG_CONTAINER_IMPL(ChunkMaterial, Material, OSG_CHUNKMATERIAL_FIELDS)
OSG_CONTAINER_IMPL(SimpleMaterial, ChunkMaterial, OSG_SIMPLEMATERIAL_FIELDS)
OSG_CONTAINER_IMPL(MaterialGroup, Group, OSG_MATERIALGROUP_FIELDS)

ChunkMaterial::ChunkMaterial(const ChunkMaterial& source) : Inherited(source)
{
    for (const StateChunkPtr& chunk : _mfChunks)
        addRefCP(chunk);
}

ChunkMaterial::~ChunkMaterial()
{
    for (const StateChunkPtr& chunk : _mfChunks)
        subRefCP(chunk);
}

bool ChunkMaterial::addChunk(StateChunkPtr chunk, Int32 slot)
{
    addRefCP(chunk);
    _mfChunks.push_back(chunk);
    if (slot != anySlot) {
        _mfSlots.resize(_mfChunks.size(), anySlot);
        _mfSlots[_mfChunks.size() - 1] = slot;
    }
    return true;
}

bool ChunkMaterial::subChunk(StateChunkPtr chunk, Int32 slot)
{
    const Int32 index = findSlot(chunk, slot);
    if (index < 0) {
        SWARNING << "ChunkMaterial::subChunk: no such chunk in slot " << slot << std::endl;
        return true;
    }
    const StateChunkPtr former = _mfChunks[static_cast<UInt32>(index)];
    _mfChunks.erase(_mfChunks.begin() + index);
    if (static_cast<UInt32>(index) < _mfSlots.size()) _mfSlots.erase(_mfSlots.begin() + index);
    subRefCP(former);
    return false;
}

Int32 ChunkMaterial::find(StateChunkPtr chunk) const
{
    const auto found = _mfChunks.find(chunk);
    return found == _mfChunks.end() ? -1 : static_cast<Int32>(found - _mfChunks.begin());
}

Int32 ChunkMaterial::findSlot(const StateChunkPtr& chunk, Int32 slot) const
{
    for (UInt32 i = 0; i < _mfChunks.size(); ++i) {
        if (_mfChunks[i] == chunk && (i < _mfSlots.size() ? _mfSlots[i] : anySlot) == slot)
            return static_cast<Int32>(i);
    }
    return -1;
}

bool SimpleMaterial::isTransparent() const
{
    return getTransparency() > 0.0f || Inherited::isTransparent();
}

void MaterialGroup::setMaterial(const MaterialPtr& material)
{
    const MaterialPtr next = material;
    addRefCP(next);
    const MaterialPtr former = _sfMaterial.getValue();
    _sfMaterial.setValue(next);
    subRefCP(former);
}

MaterialGroup::MaterialGroup(const MaterialGroup& source) : Inherited(source)
{
    addRefCP(_sfMaterial.getValue());
}

MaterialGroup::~MaterialGroup()
{
    subRefCP(_sfMaterial.getValue());
}

} // namespace osg
