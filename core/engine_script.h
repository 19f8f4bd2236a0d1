/// Scripts and the system that builds them.
#pragma once

#include "core/core_templates.h"
#include "core/sys_data_node.h"
#include "core/system_objects.h"

template <class T> class TGraph;

extern template class ENGINE_CORE_API TPArray<CSys_DataNode>;

/// A script in the form in which it runs.
class ENGINE_CORE_API CEngine_Script : public CEngine_Script_System_Object
{
  public:
    TPArray<CSys_DataNode> steps; ///< In the order in which they run, as the script system put them.

    CEngine_Script();
    ~CEngine_Script() override;
};

/// What turns graphs into scripts. The engine derives its own from it, since only it knows what nodes and
/// links mean.
class ENGINE_CORE_API CEngine_ScriptSystem
{
  public:
    CEngine_ScriptSystem();
    CEngine_ScriptSystem(const CEngine_ScriptSystem&) = delete;
    CEngine_ScriptSystem& operator=(const CEngine_ScriptSystem&) = delete;
    virtual ~CEngine_ScriptSystem();

    /// Builds a script from a loaded graph, which lives only as long as the call and may be changed by it.
    /// Returns 0 when that cannot be done.
    virtual Result CreateFromGraph(TGraph<CSys_DataNode>* graph, CEngine_Script* script, unsigned long flags) = 0;
};
