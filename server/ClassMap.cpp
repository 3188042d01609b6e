#include "ClassMap.h"

#include "ClassScript.h"
#include "resource.h"

#include "Mirovel.h"
#include "MirovelComPage.h"

std::span<ObjectMapEntry> classMap() noexcept
{
    static constinit ObjectMapEntry classes[] = {
        objectMapEntry<Mirovel>(classScript<scriptOfMirovel>),
        objectMapEntry<MirovelComPage>(classScript<scriptOfMirovelComPage>),
    };
    return classes;
}
