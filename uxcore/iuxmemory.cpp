#include "iuxmemory.h"

IUxMemory::~IUxMemory() = default;
