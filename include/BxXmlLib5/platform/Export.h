// What the shared library exports; everything that is not marked stays hidden.
#pragma once

#define BXXMLLIB5_API __attribute__((visibility("default")))

// For an internal class inside an exported one.
#define BXXMLLIB5_LOCAL __attribute__((visibility("hidden")))
