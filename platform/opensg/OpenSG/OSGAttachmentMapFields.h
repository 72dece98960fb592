#pragma once

#include <OpenSG/OSGFieldContainerFields.h>
