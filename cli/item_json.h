// What several commands print of an item.
#pragma once

#include "cli/json_writer.h"
#include "database/element.h"

// The members "date" and "modified"; the latter null for a date that no calendar can tell.
void WriteDates(JsonWriter& json, u64 date);

// The member "version", with which every answer begins.
void WriteVersion(JsonWriter& json);
