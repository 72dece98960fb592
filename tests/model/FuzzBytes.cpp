// The random model for libFuzzer, which gives the operations as bytes.

#include "RandomModel.h"

#include <OpenSG/OSGBaseFunctions.h>

#include <cstdlib>
#include <iostream>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    osg::osgInit(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const Program program = programOfBytes(bytes, size);
    if (differenceOf(program).empty()) return 0;
    std::cerr << reportOf(program, "Bytes");
    std::abort();
}
