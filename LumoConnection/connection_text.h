#pragma once

#include <string>
#include <string_view>

#include <LumoSeminar/frame/types.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// What a connection text for the embedded database says.
struct EmbeddedTarget {
    /// A path, or ":memory:".
    Text file;
    /// Sync=Full (the default) or Sync=Normal.
    bool sync_full = true;
    /// Mode=ReadOnly, otherwise Mode=ReadWrite (the default).
    bool read_only = false;
    /// User ID, empty where the text names none.
    Text user;
};

/// True for a text that asks for the embedded database: its Provider is "Embedded".
bool AsksForEmbedded(std::string_view connection_text);

/// The Provider of a text that asks for one which nobody here has: neither "Embedded" nor named beside a Driver or a
/// DSN, which are for ODBC. Empty where there is none.
Text UnknownProvider(std::string_view connection_text);

/// Where the value ends that begins there: at the next semicolon outside of quotes and braces, or behind the text.
std::size_t ValueEnd(std::string_view connection_text, std::size_t from);

/// Reads "key=value;..." with keys in any capitals and values plain, in "..." or in '...' (the quote doubled inside).
/// Raises Error (kCannotOpen) for a key that is not known, a value that is none, and what is no such text.
EmbeddedTarget ReadEmbeddedTarget(std::string_view connection_text);

}  // namespace LumoConnection
