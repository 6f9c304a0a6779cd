// The macro that marks what the shared library exports; everything else stays hidden.
#pragma once

#define BXXMLLIB5_API __attribute__((visibility("default")))
