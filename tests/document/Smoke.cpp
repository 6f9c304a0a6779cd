#include "support/Expect.h"
