#include "admin/login.h"
