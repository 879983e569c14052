# What most sources include of the standard library, compiled once for a target, where VOMAR_PRECOMPILE asks for it.
# That spares Clang a fourth of its time; in the other builds each source shows that it includes what it uses.
function(precompile_headers target)
    if(VOMAR_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE
            <algorithm> <filesystem> <functional> <map> <memory> <optional> <set> <string> <string_view> <vector>)
    endif()
endfunction()
