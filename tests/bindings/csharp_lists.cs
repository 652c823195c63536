// Outputs that hold pairs, which library is loaded, and one of another version.
//
//   csharp_lists.exe             checks lists, and prints the library's version and file
using System;
using System.Linq;
using KezLib;

static class Lists
{
    static void That(bool holds, string what)
    {
        if (!holds)
            throw new Exception(what);
    }

    static void LongLists()
    {
        const int n = 100000;
        int[] a = Enumerable.Range(0, n).ToArray(), b = Enumerable.Range(n - 1, n).ToArray();
        var com = new int[Pairs.Count(a, n, b, n)];
        int ncom, ndif, nm;
        Routines.kezmer4(n, a, n, b, out ncom, com, out ndif, new int[2 * n]);
        That(com.Length == 1 && ncom == 1 && com[0] == n - 1, "common entries");
        That(ndif == 2 * n - 2, "other entries");
        float[] x = a.Select(i => 2.0f * i).ToArray(), y = x.Select(v => v + 0.5f).ToArray();
        That(Pairs.Count(x, n, y, n, 0.5f) == n, "pairs");
        var ia = new int[2 * n];
        Routines.kezmer13(n, x, n, y, out nm, ia, new int[2 * n], 0.5f);
        That(nm == n && ia[n - 1] == n && ia[n] == 0, "near entries");
    }

    static void AsManyAsAreFound()
    {
        float[] values = {0, 1, 1.5f, 3.4e38f, -3.4e38f, 1e-45f, float.PositiveInfinity,
                          float.NegativeInfinity, float.NaN, 16777216, -1e-9f};
        float[] tolerances = {0, 1e-45f, 0.5f, 1, 3.4e38f, float.PositiveInfinity, float.NaN, -1};
        var seeded = new Random(7);
        for (int k = 0; k < 3000; ++k)
        {
            float[] a = Enumerable.Range(0, seeded.Next(9)).Select(
                i => values[seeded.Next(values.Length)]).ToArray();
            float[] b = a.Reverse().Concat(values.Take(seeded.Next(9))).ToArray();
            float tol = tolerances[seeded.Next(tolerances.Length)];
            int nm, most = Math.Max(a.Length + b.Length, a.Length * b.Length);
            Routines.kezmer13(a.Length, a, b.Length, b, out nm, new int[most], new int[most], tol);
            That(nm <= Pairs.Count(a, a.Length, b, b.Length, tol), "fewer pairs than are found");
        }
    }

    static void Main()
    {
        try
        {
            LongLists();
            AsManyAsAreFound();
        }
        catch (TypeInitializationException refusal)
        {
            Console.WriteLine(refusal.InnerException.Message);
            return;
        }
        Console.WriteLine("{0} {1}", LoadedLibrary.Version, LoadedLibrary.Path);
    }
}
