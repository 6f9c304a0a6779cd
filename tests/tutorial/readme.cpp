#include "README/01.inc"
