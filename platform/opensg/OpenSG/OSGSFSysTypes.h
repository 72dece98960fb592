#pragma once

#include <OpenSG/OSGFieldTypes.h>
