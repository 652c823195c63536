// What KezLib.cs needs beside the declarations.
using System;
using System.Globalization;
using System.Reflection;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;

namespace KezLib
{
    internal static partial class Native
    {
        // Windows completes this to KezLib.dll and mono to libKezLib.so.
        const string Library = "KezLib";

#if NETCOREAPP3_0_OR_GREATER
        // Only packages for development have a libKezLib.so, where .NET would look.
        const string VersionedLibrary = "libKezLib.so.1";

        static Native()
        {
            try
            {
                NativeLibrary.SetDllImportResolver(typeof(Native).Assembly, Resolve);
            }
            catch (InvalidOperationException)
            {
                // The host's assembly has a resolver of its own, which is asked instead.
            }
        }

        static IntPtr Resolve(string name, Assembly assembly, DllImportSearchPath? path)
        {
            IntPtr handle = IntPtr.Zero;
            if (name == Library && !RuntimeInformation.IsOSPlatform(OSPlatform.Windows))
                NativeLibrary.TryLoad(VersionedLibrary, assembly, path, out handle);
            return handle; // zero: to be searched for as usual
        }
#endif
    }

    internal static class Checks
    {
        internal static void IsThere(string name, object value)
        {
            if (value == null)
                throw new ArgumentNullException(name);
        }

        internal static void Holds(string name, Array entries, long extent)
        {
            IsThere(name, entries);
            if (entries.Length < extent)
                throw new ArgumentException(
                    string.Format(CultureInfo.InvariantCulture, "{0} holds {1} of {2} entries",
                                  name, entries.Length, extent), name);
        }

        // As the library adds counts: in 32 bits, and none before the first or behind the last.
        internal static long Sum(int[] counts, long n)
        {
            int sum = 0;
            for (long i = 0; i < Math.Min(n, counts.Length); ++i)
                sum = unchecked(sum + counts[i]);
            return sum;
        }

        internal static long Entry(int[] counts, long i)
        {
            return i >= 1 && i <= counts.Length ? counts[i - 1] : 0;
        }
    }

    // Keeps an exception of the host's routine until the library has returned.
    internal sealed class Guard
    {
        ExceptionDispatchInfo thrown;

        internal float Call(kez_z_callback z, int index)
        {
            if (thrown != null)
                return float.NaN;
            try
            {
                return z(index);
            }
            catch (Exception exception)
            {
                thrown = ExceptionDispatchInfo.Capture(exception);
                return float.NaN;
            }
        }

        internal void Rethrow()
        {
            if (thrown != null)
                thrown.Throw();
        }
    }
}
