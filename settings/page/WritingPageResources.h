/* Numbers of the page's resources, which the program carries; read by the resource compiler too. */
#pragma once

#define writingPageDialog 200

/* Each setting has a row of controls: the row's number plus the part's. The rows follow each other by ten. */
#define composeRow 210
#define strictRow 220
#define ownInstanceRow 230
#define busyTimeoutRow 240
#define diagnosticsRow 250
#define tableStyleRow 260
#define tocTitleRow 270

#define isOwnPart 1
#define fieldPart 2
#define machinePart 3
#define notePart 4

#define openLogButton 290
