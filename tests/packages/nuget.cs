// What the assembly of the package refers to, a batch call, and which library was loaded for it.
using System;
using KezLib;

static class Packed
{
    static void Main()
    {
        foreach (var name in typeof(Routines).Assembly.GetReferencedAssemblies())
            Console.WriteLine(name.Name);
        var d = new float[3];
        Batch.Call("kezpds", 3, new float[] {3, 0, 6}, new float[] {4, 5, 8}, 0f, 0f, 0f, 0f, d);
        Console.WriteLine("{0} {1} {2}", d[0], d[1], d[2]);
        Console.WriteLine("{0} {1}", LoadedLibrary.Version, LoadedLibrary.Path);
    }
}
