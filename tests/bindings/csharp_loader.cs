// What .NET has and mono has not, as far as KezLibSupport.cs uses it.
namespace System.Runtime.InteropServices
{
    delegate IntPtr DllImportResolver(string name, Reflection.Assembly assembly,
                                      DllImportSearchPath? path);

    static class NativeLibrary
    {
        public static void SetDllImportResolver(Reflection.Assembly assembly,
                                                DllImportResolver resolver)
        {
            Console.WriteLine(resolver("other", assembly, null));
            resolver("KezLib", assembly, null);
            throw new InvalidOperationException("a resolver of the host's");
        }

        public static bool TryLoad(string name, Reflection.Assembly assembly,
                                   DllImportSearchPath? path, out IntPtr handle)
        {
            Console.WriteLine(name);
            handle = IntPtr.Zero;
            return false;
        }
    }
}
