#include "tutorial/01.inc"
