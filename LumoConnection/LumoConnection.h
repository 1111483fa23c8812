#pragma once

/// The one header of the sessions and of what belongs to them. It needs nothing of ODBC's: in a build without ODBC,
/// OdbcAvailable() is false and OdbcSession is not there to be linked.

#include <LumoConnection/any_session.h>
#include <LumoConnection/batches.h>
#include <LumoConnection/connection_text.h>
#include <LumoConnection/embedded/session.h>
#include <LumoConnection/error_numbers.h>
#include <LumoConnection/install.h>
#include <LumoConnection/odbc/odbc_session.h>
#include <LumoConnection/process/process_objects.h>
#include <LumoConnection/script/recording_session.h>
#include <LumoConnection/script/rows.h>
#include <LumoConnection/script/script_processes.h>
#include <LumoConnection/script/script_run.h>
#include <LumoConnection/script/script_session.h>
#include <LumoConnection/stored_rows.h>
#include <LumoConnection/tables/create_tables.h>
#include <LumoConnection/text_file.h>
#include <LumoConnection/tracing/tracing_session.h>
