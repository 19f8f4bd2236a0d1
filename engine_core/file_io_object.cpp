#include "core/file_io_object.h"

// The virtual tables live here, once.
CFile_IOCallback::~CFile_IOCallback() = default;
CFile_IOObject::~CFile_IOObject() = default;
