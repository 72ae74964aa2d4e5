#pragma once

// Marks what the module exports. The host sees the same declarations as imports.
#if !defined(_WIN32)
#define GARM_PC3EDITOR_API
#elif defined(GARM_PC3EDITOR_IMPORT)
#define GARM_PC3EDITOR_API __declspec(dllimport)
#else
#define GARM_PC3EDITOR_API __declspec(dllexport)
#endif
