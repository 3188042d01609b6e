/* Numbers of the program's resources; read by the resource compiler too. */
#pragma once

#define frameDialog 100
#define applyButton 101
#define pageTabs 102
