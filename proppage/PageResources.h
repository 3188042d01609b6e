/* Numbers of the settings page's resources, which the module carries; read by the resource compiler too. */
#pragma once

#define pageDialog 108

#define pageTitle 104
#define pageDescription 106

#define tocLevelField 203
#define tocLevelSpin 205
#define templateNameField 401
#define browseButton 402
