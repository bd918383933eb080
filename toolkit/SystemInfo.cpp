#include "Toolkit/SystemInfo.h"

#include <bit>

namespace Toolkit {

SystemInfo::SystemInfo() = default;
SystemInfo::~SystemInfo() = default;

int SystemInfo::GetEndian() {
    return std::endian::native == std::endian::big ? 1 : 0;
}

} // namespace Toolkit
