/* Numbers of the module's resources; read by the resource compiler too. */
#pragma once

#define moduleName 100
#define scriptOfMirovel 101
#define scriptOfMirovelComPage 107
