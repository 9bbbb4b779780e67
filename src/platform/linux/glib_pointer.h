#pragma once

#include <memory>

#include <gio/gio.h>

namespace corvane {

/// Owning pointers for GLib objects.

template <auto release>
struct GlibRelease {
    template <typename T>
    void operator()(T *object) const
    {
        release(object);
    }
};

template <typename T>
using GObjectPointer = std::unique_ptr<T, GlibRelease<g_object_unref>>;
using GStringPointer = std::unique_ptr<char, GlibRelease<g_free>>;
using GVariantPointer = std::unique_ptr<GVariant, GlibRelease<g_variant_unref>>;
using GSchemaPointer = std::unique_ptr<GSettingsSchema, GlibRelease<g_settings_schema_unref>>;
using GKeyFilePointer = std::unique_ptr<GKeyFile, GlibRelease<g_key_file_unref>>;
using GDateTimePointer = std::unique_ptr<GDateTime, GlibRelease<g_date_time_unref>>;
using GErrorPointer = std::unique_ptr<GError, GlibRelease<g_error_free>>;

} // namespace corvane
