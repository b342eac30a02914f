#pragma once

namespace Kel {

/// Tabs of a module group. They are the host's: it defines the enumerators by completing this declaration.
enum EModuleTroupTabID : int;

} // namespace Kel
