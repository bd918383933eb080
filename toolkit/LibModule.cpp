#include "Toolkit/LibModule.h"

namespace Toolkit {

LibModule::LibModule() = default;
LibModule::~LibModule() = default;
void LibModule::Initialize() {}
void LibModule::Release() {}

} // namespace Toolkit
