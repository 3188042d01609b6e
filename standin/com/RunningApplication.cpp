#include "RunningApplication.h"

#include "ApplicationFactory.h"

namespace standin {
RunningApplication::RunningApplication(Word::_Application& application)
{
    _com_util::CheckError(
        RegisterActiveObject(&application, applicationClassId, ACTIVEOBJECT_WEAK, &registration_));
}

RunningApplication::~RunningApplication()
{
    RevokeActiveObject(registration_, nullptr);
}
} // namespace standin
