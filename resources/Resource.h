#pragma once

// Numbers of what the language resource library holds; read by the resource compiler too, so macros.

// Strings
#define IDS_SAVE_FAILED 201
#define IDS_COMMAND_PC3EDIT 3000
#define IDS_COMMAND_PC3GETDEVMODE 3002
