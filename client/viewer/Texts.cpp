// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Texts.h"

#include "base/GLibHolder.h"

#include <glib/gi18n.h>
#include <lectern-glib/lectern-glib.h>

namespace lectern::viewer {

namespace {

struct DateRelease {
    void operator()(GDateTime* date) const { g_date_time_unref(date); }
};
using Date = std::unique_ptr<GDateTime, DateRelease>;

bool sameDay(GDateTime* one, GDateTime* other) {
    return g_date_time_get_year(one) == g_date_time_get_year(other) &&
           g_date_time_get_day_of_year(one) == g_date_time_get_day_of_year(other);
}

Problem documentProblem(int code) {
    switch (code) {
    case LECTERN_DOCUMENT_ERROR_NOT_FOUND:
        return {_("File Not Found"),
                _("It was moved, renamed or deleted, or its disk is not connected. Look for it, and open it "
                  "from where it is now.")};
    case LECTERN_DOCUMENT_ERROR_NOT_A_FILE:
        return {_("Not a File"), _("This is a folder or a device. Open a document in it.")};
    case LECTERN_DOCUMENT_ERROR_NOT_READABLE:
        return {_("File Cannot Be Read"),
                _("You may not read this file, or its disk has a fault. Ask its owner for access, or copy it "
                  "to your own folder.")};
    case LECTERN_DOCUMENT_ERROR_DAMAGED:
        return {_("Not a Readable Document"),
                _("The file is damaged, or it is not a text, spreadsheet or presentation. Get it again from "
                  "where it came from.")};
    case LECTERN_DOCUMENT_ERROR_WRONG_KIND:
        return {_("Another Kind of Document"),
                _("The contents do not match the file's name. Change the name's ending, and open it again.")};
    case LECTERN_DOCUMENT_ERROR_TIMED_OUT:
    case LECTERN_DOCUMENT_ERROR_TOO_COMPLEX:
        return {_("Document Takes Too Long"),
                _("The document is too complex to be laid out in time. Close other programs and try again, "
                  "or ask for a simpler version of it.")};
    case LECTERN_DOCUMENT_ERROR_TOO_LARGE:
        return {_("Document Is Too Large"),
                _("It needs more memory than a document may use. Ask for a version with fewer or smaller "
                  "pictures, or in several files.")};
    case LECTERN_DOCUMENT_ERROR_ENGINE_LOST:
        return {_("Document Crashed Its Engine"),
                _("The process that laid out this document has stopped. Your other documents are safe. Try "
                  "again; if it happens again, the document is the cause.")};
    case LECTERN_DOCUMENT_ERROR_NO_ENGINE:
        return {_("Engine Cannot Be Started"),
                _("Lectern needs LibreOffice Writer, Calc and Impress to lay out documents. Install them, "
                  "and try again.")};
    case LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED:
        return {_("Document Is Not Supported"),
                _("Lectern does not show this kind of document. Ask for it in another format, such as an "
                  "OpenDocument file.")};
    case LECTERN_DOCUMENT_ERROR_CHANGED:
        return {_("File Has Changed"),
                _("Another program has written to the file. Try again to see its new contents.")};
    default:
        return {_("Document Cannot Be Shown"),
                _("Its layout has failed. Try again; if it fails again, the document is the cause.")};
    }
}

Problem serviceProblem(int code) {
    switch (code) {
    case LECTERN_SERVICE_ERROR_BUS:
        return {_("No Document Service"),
                _("The service that lays out documents cannot be reached. Try again; if that does not help, "
                  "install Lectern again.")};
    case LECTERN_SERVICE_ERROR_SYSTEM:
        return {_("Out of System Resources"),
                _("Memory or another resource of the system is used up. Close other programs, and try "
                  "again.")};
    case LECTERN_SERVICE_ERROR_TIMED_OUT:
        return {_("Service Does Not Answer"),
                _("It may be busy with another document. Wait a moment, and try again.")};
    case LECTERN_SERVICE_ERROR_GONE:
        return {_("Service Has Stopped"), _("Try again: it starts by itself.")};
    default:
        return documentProblem(LECTERN_DOCUMENT_ERROR_FAILED);
    }
}

} // namespace

std::string nameOf(GFile* file) {
    const GLibHolder<char> name(g_file_get_basename(file));
    const GLibHolder<char> shown(g_filename_display_name(name.get()));
    return shown.get();
}

std::string folderOf(GFile* file) {
    const GLibHolder<GFile> folder(g_file_get_parent(file));
    if (!folder) {
        return {};
    }
    const GLibHolder<GFile> home(g_file_new_for_path(g_get_home_dir()));
    if (g_file_equal(folder.get(), home.get()) != FALSE) {
        return "~";
    }
    if (const GLibHolder<char> below(g_file_get_relative_path(home.get(), folder.get())); below) {
        return std::string("~/") + GLibHolder<char>(g_filename_display_name(below.get())).get();
    }
    return GLibHolder<char>(g_file_get_parse_name(folder.get())).get();
}

std::string whenText(GDateTime* then, GDateTime* now) {
    const Date yesterday(g_date_time_add_days(now, -1));
    if (sameDay(then, yesterday.get())) {
        return _("Yesterday");
    }
    // TRANSLATORS: the time of a document that was opened today
    const char* format = sameDay(then, now) ? _("%H:%M")
                         // TRANSLATORS: the day of a document that was opened this year
                         : g_date_time_get_year(then) == g_date_time_get_year(now)
                             ? _("%B %-d")
                             // TRANSLATORS: of an earlier year
                             : _("%B %-d, %Y");
    return GLibHolder<char>(g_date_time_format(then, format)).get();
}

Problem problemOf(const GError& error) {
    if (error.domain == LECTERN_DOCUMENT_ERROR) {
        return documentProblem(error.code);
    }
    return serviceProblem(
        error.domain == LECTERN_SERVICE_ERROR ? error.code : static_cast<int>(LECTERN_SERVICE_ERROR_FAILED));
}

bool asksForPassword(const GError& error) {
    return error.domain == LECTERN_DOCUMENT_ERROR && (error.code == LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD ||
                                                      error.code == LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD);
}

} // namespace lectern::viewer
