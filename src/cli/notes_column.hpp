// The notes column of "schichtkalender days": the notes of each day joined
// on one line, read from the user's directory with the password given on
// the command line.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "calendar/dates.hpp"
#include "cli/commands.hpp"
#include "notes/note_store.hpp"

namespace sk::cli {

// The user's notes with their indexes read once; null when the user's
// directory does not exist. --password is taken as typed (UTF-8) and used as
// its ISO-8859-15 bytes, as at the login; a password ISO-8859-15 cannot hold
// is a UsageError naming the character.
std::shared_ptr<notes::NoteStore> user_note_store(const UserContext& context, const Options& options);

// The notes of a day from user_note_store(); an empty function when there is
// no store.
std::function<std::string(const calendar::Day&)> notes_column(const UserContext& context,
                                                              const Options& options);

}  // namespace sk::cli
