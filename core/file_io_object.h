/// The base of every document, record and container that loads and saves itself.
#pragma once

#include "core/core_base.h"

class CFile_Parser;
class CFile_Saver;

/// Handed from a Load to the Loads beneath it; nothing here calls it.
class ENGINE_CORE_API CFile_IOCallback
{
  public:
    virtual ~CFile_IOCallback();
};

/// What reads itself from a parser and writes itself to a saver.
/// Virtual operations, in slot order: destructor, Load, Save; a derived class adds its own behind them.
class ENGINE_CORE_API CFile_IOObject
{
  public:
    CFile_IOObject() = default;
    CFile_IOObject(const CFile_IOObject&) = default;
    CFile_IOObject(CFile_IOObject&&) = default;
    CFile_IOObject& operator=(const CFile_IOObject&) = default;
    CFile_IOObject& operator=(CFile_IOObject&&) = default;
    virtual ~CFile_IOObject();

    /// Reads the lines of the object's block, whose opening line the caller has just read, to its end.
    /// callback may be null. Takes whatever the text holds: what cannot be read leaves its field.
    /// Returns 1 unless the class says otherwise.
    virtual Result Load(CFile_Parser* parser, CFile_IOCallback* callback) = 0;

    /// Writes the object as one block. Returns 0, nothing written, when the block cannot be opened.
    virtual Result Save(CFile_Saver* saver) = 0;
};
